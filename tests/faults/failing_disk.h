// A disk under one folder that hangs or fails when this process asks it for anything: the system's calls of that kind
// are taken over for the whole test program.
#pragma once

#include <string>

namespace tandem::test {

class FailingDisk {
 public:
  explicit FailingDisk(const std::string& folder);  // one at a time
  ~FailingDisk();
  FailingDisk(const FailingDisk&) = delete;
  FailingDisk& operator=(const FailingDisk&) = delete;

  void hang();    // opening or reading a file of the folder blocks
  void go_on();   // they all go on
  void fail();    // reading a file of the folder gives an input error
  int waiting();  // how many threads wait now
};

}  // namespace tandem::test

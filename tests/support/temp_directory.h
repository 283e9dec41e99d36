// A directory for a test's files that goes away with the object.
#pragma once

#include <string>

namespace tandem::test {

class TempDirectory {
 public:
  TempDirectory();
  TempDirectory(const TempDirectory&) = delete;
  TempDirectory& operator=(const TempDirectory&) = delete;
  ~TempDirectory();

  const std::string& path() const { return path_; }
  std::string file(const std::string& name) const { return path_ + "/" + name; }

 private:
  std::string path_;
};

}  // namespace tandem::test

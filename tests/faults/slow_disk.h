// A slow disk under one song of any length, in simulated time: the system's calls for reading are taken over for the
// whole test program. The song's file is a hole; what is read from it is a short piece again and again.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "support/bytes.h"

namespace tandem::test {

class SlowDisk {
 public:
  // Makes the file: `size` bytes of `piece` after `piece`. One disk at a time.
  SlowDisk(const std::string& path, const Bytes& piece, std::int64_t size);
  ~SlowDisk();
  SlowDisk(const SlowDisk&) = delete;
  SlowDisk& operator=(const SlowDisk&) = delete;

  void set_speed(double bytes_per_second, double seconds_per_read);  // at first it takes no time
  // Called after each read, on the reading thread.
  void on_read(std::function<void()> act);

  double busy_seconds() const;  // what all reads so far have taken
  std::int64_t bytes_read() const;
  int reads() const;
};

}  // namespace tandem::test

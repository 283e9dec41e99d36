// How soon to retry a device or server that could not be reached: every 200 ms, and after 50 failures every second,
// since an attempt reads files and may query other programs. Any one thread.
#pragma once

#include "platform/realtime/monotonic_clock.h"

namespace tandem {

class RetryDelay {
 public:
  static constexpr Nanoseconds kQuick = 200 * kNanosecondsPerMillisecond;
  static constexpr Nanoseconds kSlow = kNanosecondsPerSecond;
  static constexpr int kQuickAttempts = 50;

  void succeeded() noexcept { failures_ = 0; }
  void failed() noexcept { ++failures_; }
  int failures() const noexcept { return failures_; }  // in a row
  Nanoseconds delay() const noexcept { return failures_ < kQuickAttempts ? kQuick : kSlow; }

 private:
  int failures_ = 0;
};

}  // namespace tandem

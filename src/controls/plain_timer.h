// The window's plain timer: ticks once an interval while it is enabled. UI thread only.
#pragma once

#include "base/notification.h"
#include "base/timer_queue.h"

namespace tandem {

class PlainTimer {
 public:
  PlainTimer(TimerQueue& queue, std::int32_t interval_ms) : Interval(interval_ms), queue_(queue) {
    timer_ = queue_.add([this] { tick.raise(); });
  }
  PlainTimer(const PlainTimer&) = delete;
  PlainTimer& operator=(const PlainTimer&) = delete;

  Notification<> tick;
  const std::int32_t Interval;

  bool Enabled() const { return queue_.running(timer_); }
  // Enabling a timer that is enabled already leaves it running as it was.
  void put_Enabled(bool enabled) {
    if (enabled == Enabled()) return;
    if (enabled) {
      queue_.start(timer_, Interval);
    } else {
      queue_.stop(timer_);
    }
  }

 private:
  TimerQueue& queue_;
  TimerQueue::Id timer_ = 0;
};

}  // namespace tandem

// A high-resolution timer on the program's timer queue. UI thread; nothing fails.
#pragma once

#include <cstdint>

#include "audio/mm_hi_timer.h"
#include "base/timer_queue.h"

namespace tandem {

class HiTimer final : public MMHiTimerX {
 public:
  HiTimer(TimerQueue& queue, std::int32_t interval, bool enabled)
      : queue_(queue), timer_(queue.add([this] { tick.raise(); })), interval_(interval), enabled_(enabled) {
    restart();
  }
  HiTimer(const HiTimer&) = delete;
  HiTimer& operator=(const HiTimer&) = delete;

  std::int32_t Interval() const override { return interval_; }
  void put_Interval(std::int32_t milliseconds) override {
    interval_ = milliseconds;
    restart();
  }
  bool Enabled() const override { return enabled_; }
  void put_Enabled(bool enabled) override {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    restart();
  }

  // Saves ticks that would do nothing, see TimerQueue.
  void postpone(TimerQueue::Milliseconds milliseconds) { queue_.postpone(timer_, queue_.now() + milliseconds); }
  void hasten() { queue_.hasten(timer_); }

 private:
  void restart() { queue_.start(timer_, enabled_ ? interval_ : 0); }

  TimerQueue& queue_;
  TimerQueue::Id timer_;
  std::int32_t interval_;
  bool enabled_;
};

}  // namespace tandem

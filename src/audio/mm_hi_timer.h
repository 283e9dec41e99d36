// A high-resolution timer. UI thread.
#pragma once

#include <cstdint>

#include "base/notification.h"
#include "base/timer_queue.h"

namespace tandem {

class MMHiTimerX {
 public:
  virtual ~MMHiTimerX() = default;
  virtual std::int32_t Interval() const = 0;  // milliseconds; 0 stops the timer
  virtual void put_Interval(std::int32_t milliseconds) = 0;
  virtual bool Enabled() const = 0;
  virtual void put_Enabled(bool enabled) = 0;
  Notification<> tick;
};

// The timer on the program's timer queue.
class HiTimer final : public MMHiTimerX {
 public:
  HiTimer(TimerQueue& queue, std::int32_t interval, bool enabled);
  HiTimer(const HiTimer&) = delete;
  HiTimer& operator=(const HiTimer&) = delete;

  std::int32_t Interval() const override { return interval_; }
  void put_Interval(std::int32_t milliseconds) override;
  bool Enabled() const override { return enabled_; }
  void put_Enabled(bool enabled) override;

  // Saves ticks that would do nothing, see TimerQueue.
  void postpone(TimerQueue::Milliseconds milliseconds) { queue_.postpone(timer_, queue_.now() + milliseconds); }
  void hasten() { queue_.hasten(timer_); }

 private:
  void restart();

  TimerQueue& queue_;
  TimerQueue::Id timer_;
  std::int32_t interval_;
  bool enabled_;
};

}  // namespace tandem

// The panel's mix timer: counts its ticks, can be made to tick between two of them, and can skip ticks that would do
// nothing. UI thread; nothing fails.
#pragma once

#include <cstdint>

#include "engine/components/hi_timer.h"

namespace tandem {

class MixTimer final : public MMHiTimerX {
 public:
  explicit MixTimer(TimerQueue& queue) : timer_(queue, 0, true) {
    timer_.tick.connect([this] { tick_now(); });
  }
  std::int32_t Interval() const override { return timer_.Interval(); }
  void put_Interval(std::int32_t milliseconds) override { timer_.put_Interval(milliseconds); }
  bool Enabled() const override { return timer_.Enabled(); }
  void put_Enabled(bool enabled) override { timer_.put_Enabled(enabled); }

  // Skips ticks for that long. A later call replaces an earlier one, so that a mix point that moved closer (after a
  // seek or a new lead time) is not missed. hasten() takes it back.
  void skip_ticks_for(TimerQueue::Milliseconds milliseconds) {
    timer_.hasten();
    timer_.postpone(milliseconds);
  }
  void hasten() { timer_.hasten(); }

  bool running() const { return timer_.Enabled() && timer_.Interval() > 0; }
  void tick_now() {
    ++ticks_;
    tick.raise();
  }
  std::uint64_t ticks() const { return ticks_; }

 private:
  HiTimer timer_;
  std::uint64_t ticks_ = 0;
};

}  // namespace tandem

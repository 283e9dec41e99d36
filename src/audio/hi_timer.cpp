#include "audio/mm_hi_timer.h"

namespace tandem {

HiTimer::HiTimer(TimerQueue& queue, std::int32_t interval, bool enabled)
    : queue_(queue), timer_(queue.add([this] { tick.raise(); })), interval_(interval), enabled_(enabled) {
  restart();
}

void HiTimer::restart() { queue_.start(timer_, enabled_ ? interval_ : 0); }

void HiTimer::put_Interval(std::int32_t milliseconds) {
  interval_ = milliseconds;
  restart();
}

void HiTimer::put_Enabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  restart();
}

}  // namespace tandem

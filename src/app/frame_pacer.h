// When the next frame of what moves is due: evenly, and never more often than the period says. Any thread, one at a
// time.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tandem {

class FramePacer {
 public:
  using Milliseconds = std::int64_t;

  // True if a frame is due now, which is then taken as drawn; `period` in milliseconds may change from call to call.
  bool take(Milliseconds now, double period) noexcept {
    if (period < period_) due_ = std::min(due_, static_cast<double>(last_) + period);
    period_ = period;
    if (static_cast<double>(now) + 0.5 < due_) return false;
    last_ = now;
    due_ = std::max(due_ + period, static_cast<double>(now) + period / 2);
    return true;
  }
  Milliseconds last() const noexcept { return last_; }
  Milliseconds next() const noexcept { return std::lround(due_); }

 private:
  double due_ = 0;  // milliseconds
  double period_ = 0;
  Milliseconds last_ = 0;
};

}  // namespace tandem

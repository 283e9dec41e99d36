#include "displays/spectrum/slow_level.h"

#include <algorithm>
#include <cmath>

namespace tandem {

namespace {

constexpr double kShare = 0.8;  // of the difference that is taken out
constexpr double kNoLevel = 1e-6;
constexpr double kRise = 0.4;  // seconds
constexpr double kLevelFall = 4.0;
constexpr double kQuietest = -55.0;  // dB
constexpr double kLoudest = -12.0;

}  // namespace

void SlowLevel::follow(double mean_power, double seconds) noexcept {
  if (mean_power <= kNoLevel) return;
  const double now = std::clamp(10.0 * std::log10(mean_power), kQuietest, kLoudest);
  level_db_ += (now - level_db_) * (1.0 - std::exp(-seconds / (now > level_db_ ? kRise : kLevelFall)));
}

float SlowLevel::factor() const noexcept {
  return static_cast<float>(std::pow(10.0, kShare * (kMiddle - level_db_) / 10.0));
}

}  // namespace tandem

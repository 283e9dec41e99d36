#include "displays/spectrum/bar_decay.h"

#include <algorithm>
#include <cmath>

namespace tandem {

namespace {
constexpr float kLeastHeight = 1.0F / 1024.0F;  // ends a fall that becomes slower and slower
constexpr float kRest = 0.1F;                   // seconds
constexpr double kSpeedUnit = 0.12;             // full heights a second in one unit of the decay
}  // namespace

void BarDecay::prepare(std::size_t bars) { rests_.assign(bars, 0.0F); }

void BarDecay::put(DecayKind kind, std::int32_t decay, bool solid) noexcept {
  kind_ = kind;
  solid_ = solid;
  speed_ = kSpeedUnit * decay;
}

void BarDecay::move(std::span<float> levels, std::span<const float> targets, double seconds) noexcept {
  const float rest = kind_ == DecayKind::Step && solid_ ? kRest : 0.0F;
  for (std::size_t i = 0; i < levels.size(); ++i) {
    const double falling = std::max(0.0, seconds - static_cast<double>(rests_[i]));
    rests_[i] = std::max(0.0F, rests_[i] - static_cast<float>(seconds));
    if (targets[i] >= levels[i]) rests_[i] = rest;
    levels[i] = std::max(targets[i], targets[i] >= levels[i] ? 0.0F : fallen(levels[i], falling));
  }
}

float BarDecay::fallen(float level, double seconds) const noexcept {
  if (kind_ == DecayKind::None || level <= 0.0F) return 0.0F;
  if (kind_ != DecayKind::Exponenc) return std::max(0.0F, level - static_cast<float>(speed_ * seconds));
  const float lower = level * static_cast<float>(std::exp(-speed_ * seconds));
  return lower < kLeastHeight ? 0.0F : lower;
}

float BarDecay::shown(float level, int rows) const noexcept {
  const auto count = static_cast<float>(rows);
  return kind_ == DecayKind::Step && !solid_ ? std::round(level * count) / count : level;
}

}  // namespace tandem

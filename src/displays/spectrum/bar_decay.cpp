#include "displays/spectrum/bar_decay.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace tandem {

namespace {
constexpr float kInvisible = 1.0F / 1024.0F;  // ends a fall that gets ever slower
}

void BarDecay::move(std::span<float> levels, std::span<const float> targets, double seconds) const noexcept {
  for (std::size_t i = 0; i < levels.size(); ++i) levels[i] = std::max(targets[i], fallen(levels[i], seconds));
}

float BarDecay::fallen(float level, double seconds) const noexcept {
  if (kind_ == DecayKind::None || level <= 0.0F) return 0.0F;
  if (kind_ != DecayKind::Exponenc) return std::max(0.0F, level - static_cast<float>(speed_ * seconds));
  const float lower = level * static_cast<float>(std::exp(-speed_ * seconds));
  return lower < kInvisible ? 0.0F : lower;
}

float BarDecay::shown(float level) const noexcept {
  return kind_ == DecayKind::Step ? std::round(level * kRows) / kRows : level;
}

}  // namespace tandem

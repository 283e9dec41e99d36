#include "displays/meters/level_bar.h"

#include <algorithm>
#include <cmath>

namespace tandem {

namespace {

constexpr float kOffset = 3.0F;                   // dB
constexpr float kGain = -3.0F;                    // dB
constexpr float kBarRange = 2 * LevelBar::kRows;  // dB
constexpr double kFall = 9 * 0.12;                // full heights a second

float height(float amplitude) noexcept {
  if (amplitude <= 0.0F) return 0.0F;
  return std::clamp(1.0F + (20.0F * std::log10(amplitude) + kOffset + kGain) / kBarRange, 0.0F, 1.0F);
}

SoundFrame greatest(std::span<const BlockLevel> blocks) noexcept {
  SoundFrame top;
  for (const BlockLevel& block : blocks) {
    top.left = std::max(top.left, block.greatest.left);
    top.right = std::max(top.right, block.greatest.right);
  }
  return top;
}

}  // namespace

void LevelBar::reset() {
  blocks_ = {};
  targets_ = {};
  levels_ = {};
  lit_ = {};
}

bool LevelBar::pass(double seconds) {
  const std::span<const BlockLevel> blocks = blocks_.advance(seconds);
  if (!blocks.empty()) {
    const SoundFrame top = greatest(blocks);
    targets_ = {height(top.left), height(top.right)};
  }
  const BothSides<int> before = lit_;
  for (std::size_t side = 0; side < kSides; ++side) {
    levels_[side] = std::max(targets_[side], levels_[side] - static_cast<float>(kFall * seconds));
    lit_[side] = static_cast<int>(std::lround(levels_[side] * kRows));
  }
  return lit_ != before;
}

bool LevelBar::resting() const {
  return blocks_.silent() && targets_ == BothSides<float>{} && levels_ == BothSides<float>{};
}

}  // namespace tandem

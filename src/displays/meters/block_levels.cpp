#include "displays/meters/block_levels.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tandem {

void BlockLevels::feed(std::span<const SoundFrame> frames) noexcept {
  if (frames.empty()) return;
  watch_.fed();
  if (taken_) count_ = 0;
  taken_ = false;
  for (const SoundFrame& frame : frames.last(std::min(frames.size(), kKept * kBlock))) add(frame);
}

void BlockLevels::add(const SoundFrame& frame) noexcept {
  const float left = std::abs(frame.left);
  const float right = std::abs(frame.right);
  under_way_.greatest = {std::max(under_way_.greatest.left, left), std::max(under_way_.greatest.right, right)};
  under_way_.average.left += left;
  under_way_.average.right += right;
  if (++filled_ == kBlock) finish_block();
}

void BlockLevels::finish_block() noexcept {
  if (count_ == kKept) {
    std::shift_left(blocks_.begin(), blocks_.end(), 1);
    --count_;
  }
  // The mean of a rectified sine is 2 / pi of its amplitude.
  constexpr float kScale = std::numbers::pi_v<float> / 2.0F / static_cast<float>(kBlock);
  under_way_.average = {under_way_.average.left * kScale, under_way_.average.right * kScale};
  blocks_[count_++] = under_way_;
  under_way_ = {};
  filled_ = 0;
}

bool BlockLevels::silent() const noexcept {
  const auto pending = std::span(blocks_).first(taken_ ? 0 : count_);
  return under_way_ == BlockLevel{} &&
         std::all_of(pending.begin(), pending.end(), [](const BlockLevel& block) { return block == BlockLevel{}; });
}

std::span<const BlockLevel> BlockLevels::advance(double seconds) noexcept {
  if (taken_) count_ = 0;
  taken_ = true;
  if (watch_.advance(seconds) == FeedWatch::State::Gone) {
    under_way_ = {};
    filled_ = 0;
    blocks_[0] = {};
    count_ = 1;
  }
  return std::span(blocks_).first(count_);
}

}  // namespace tandem

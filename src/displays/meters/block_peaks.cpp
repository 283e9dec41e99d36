#include "displays/meters/block_peaks.h"

#include <algorithm>
#include <cmath>

namespace tandem {

void BlockPeaks::feed(std::span<const SoundFrame> frames) noexcept {
  if (frames.empty()) return;
  watch_.fed();
  if (taken_) count_ = 0;
  taken_ = false;
  for (const SoundFrame frame : frames.last(std::min(frames.size(), kKept * kBlock))) {
    greatest_.left = std::max(greatest_.left, std::abs(frame.left));
    greatest_.right = std::max(greatest_.right, std::abs(frame.right));
    if (++filled_ == kBlock) finish_block();
  }
}

void BlockPeaks::finish_block() noexcept {
  if (count_ == kKept) {
    std::shift_left(blocks_.begin(), blocks_.end(), 1);
    --count_;
  }
  blocks_[count_++] = greatest_;
  greatest_ = {};
  filled_ = 0;
}

bool BlockPeaks::silent() const noexcept {
  const auto pending = std::span(blocks_).first(taken_ ? 0 : count_);
  return greatest_ == SoundFrame{} &&
         std::all_of(pending.begin(), pending.end(), [](const SoundFrame& block) { return block == SoundFrame{}; });
}

std::span<const SoundFrame> BlockPeaks::advance(double seconds) noexcept {
  if (taken_) count_ = 0;
  taken_ = true;
  if (watch_.advance(seconds) == FeedWatch::News::Gone) {
    greatest_ = {};
    filled_ = 0;
    blocks_[0] = {};
    count_ = 1;
  }
  return std::span(blocks_).first(count_);
}

}  // namespace tandem

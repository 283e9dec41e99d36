#include "engine/render/limiter.h"

#include <algorithm>
#include <cmath>

namespace tandem {

namespace {

using FrameBlock = std::span<StereoFrame, LimiterEnvelope::kBlock>;

// False too if a sample is no number. Counts rather than leaving early: a loop without branches.
bool within_full_scale(FrameBlock frames) {
  int within = 0;
  for (const StereoFrame& frame : frames) {
    within += static_cast<int>(std::abs(frame.left) <= 1.0F) + static_cast<int>(std::abs(frame.right) <= 1.0F);
  }
  return within == 2 * static_cast<int>(frames.size());
}

void silence_what_is_no_number(FrameBlock frames) {
  for (StereoFrame& frame : frames) {
    if (!std::isfinite(frame.left) || !std::isfinite(frame.right)) frame = {};
  }
}

Divisor excess_of(const StereoFrame& frame) {
  return {std::max(std::abs(frame.left), 1.0F), std::max(std::abs(frame.right), 1.0F)};
}

std::size_t measure(FrameBlock frames, LimiterEnvelope::Block& excess) {
  silence_what_is_no_number(frames);
  std::transform(frames.begin(), frames.end(), excess.begin(), excess_of);
  return static_cast<std::size_t>(
      std::count_if(excess.begin(), excess.end(), [](const Divisor& d) { return d.left > 1.0F || d.right > 1.0F; }));
}

void divide(FrameBlock frames, const LimiterEnvelope::Block& by) {
  for (std::size_t i = 0; i < frames.size(); ++i)
    frames[i] = {frames[i].left / by[i].left, frames[i].right / by[i].right};
}

}  // namespace

void Limiter::process(std::span<StereoFrame> in_out) noexcept {
  while (!in_out.empty()) {
    const std::size_t count = std::min(in_out.size(), kBlock - place_ % kBlock);
    for (std::size_t i = 0; i < count; ++i) std::swap(in_out[i], sound_[place_ + i]);
    place_ += count;
    in_out = in_out.subspan(count);
    if (place_ % kBlock == 0) end_block();
  }
}

// The oldest block lies where the next input will go.
void Limiter::end_block() noexcept {
  const Block filled = block_at(place_ - kBlock);
  place_ %= sound_.size();
  const bool quiet = within_full_scale(filled);
  if (quiet && envelope_.at_rest()) {
    envelope_.rest();
    return;
  }
  LimiterEnvelope::Block excess;
  const std::size_t beyond = quiet ? 0 : measure(filled, excess);
  divide(block_at(place_), envelope_.next(excess, beyond));
}

}  // namespace tandem

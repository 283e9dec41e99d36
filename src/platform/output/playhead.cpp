#include "platform/output/playhead.h"

#include <algorithm>

#include "engine/core/frames.h"

namespace tandem {

void Playhead::add(std::uint64_t frames, Nanoseconds now) noexcept {
  if (played(now) == added_) {
    base_ = added_;
    since_ = now;
  }
  added_ += frames;
}

std::uint64_t Playhead::played(Nanoseconds now) noexcept {
  const Nanoseconds elapsed = std::max<Nanoseconds>(now - since_, 0);
  const Nanoseconds seconds = elapsed / kNanosecondsPerSecond;
  const Nanoseconds rest = elapsed % kNanosecondsPerSecond;
  // Whole seconds move the base: they are exact in frames, and the product below stays small for ever.
  base_ += static_cast<std::uint64_t>(seconds) * static_cast<std::uint64_t>(kSampleRate);
  since_ += seconds * kNanosecondsPerSecond;
  base_ = std::min(base_, added_);
  return std::min(base_ + static_cast<std::uint64_t>(rest * kSampleRate / kNanosecondsPerSecond), added_);
}

Nanoseconds Playhead::time_of_queue(std::uint64_t frames, Nanoseconds now) noexcept {
  const std::uint64_t queue = queued(now);
  if (queue <= frames) return now;
  const auto until = static_cast<Nanoseconds>(added_ - frames - base_);
  return since_ + (until * kNanosecondsPerSecond + kSampleRate - 1) / kSampleRate;
}

}  // namespace tandem

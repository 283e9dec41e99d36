#include "platform/output/playback_clock.h"

#include <algorithm>

#include "engine/core/frames.h"

namespace tandem {

namespace {

constexpr int kReadTries = 8;

std::uint64_t run_on(const PlaybackClock::Anchor& anchor, Nanoseconds now) noexcept {
  const Nanoseconds elapsed = std::clamp<Nanoseconds>(now - anchor.at, 0, 60 * kNanosecondsPerSecond);
  const auto frames = static_cast<std::uint64_t>(elapsed * kSampleRate / kNanosecondsPerSecond);
  return std::min(anchor.frames + frames, anchor.ceiling);
}

}  // namespace

std::uint64_t PlaybackClock::frames_played(Nanoseconds now) const noexcept {
  Anchor anchor;
  bool whole = false;
  // A writer that was interrupted half way must not hold up a reader of higher priority: the last answer serves then.
  for (int i = 0; i < kReadTries && !whole; ++i) whole = anchor_.try_read(anchor);
  std::uint64_t floor = floor_.load(std::memory_order_relaxed);
  if (!whole) return floor;
  const std::uint64_t frames = run_on(anchor, now);
  while (frames > floor && !floor_.compare_exchange_weak(floor, frames, std::memory_order_relaxed)) {
  }
  return std::max(frames, floor);
}

}  // namespace tandem

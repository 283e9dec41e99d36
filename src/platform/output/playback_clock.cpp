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

void PlaybackClock::publish(const Anchor& anchor) noexcept {
  const std::uint32_t turn = turn_.load(std::memory_order_relaxed);
  turn_.store(turn + 1, std::memory_order_relaxed);
  // Released one by one, so that who reads any of them also sees the odd turn.
  frames_.store(anchor.frames, std::memory_order_release);
  at_.store(anchor.at, std::memory_order_release);
  ceiling_.store(anchor.ceiling, std::memory_order_release);
  turn_.store(turn + 2, std::memory_order_release);
}

bool PlaybackClock::read(Anchor& anchor) const noexcept {
  const std::uint32_t turn = turn_.load(std::memory_order_acquire);
  anchor.frames = frames_.load(std::memory_order_acquire);
  anchor.at = at_.load(std::memory_order_acquire);
  anchor.ceiling = ceiling_.load(std::memory_order_acquire);
  return (turn & 1U) == 0 && turn == turn_.load(std::memory_order_relaxed);
}

std::uint64_t PlaybackClock::heard(Nanoseconds now) const noexcept {
  Anchor anchor;
  bool whole = false;
  // A writer that was interrupted half way must not hold a reader of higher priority: the last answer serves then.
  for (int i = 0; i < kReadTries && !whole; ++i) whole = read(anchor);
  std::uint64_t floor = floor_.load(std::memory_order_relaxed);
  if (!whole) return floor;
  const std::uint64_t frames = run_on(anchor, now);
  while (frames > floor && !floor_.compare_exchange_weak(floor, frames, std::memory_order_relaxed)) {
  }
  return std::max(frames, floor);
}

}  // namespace tandem

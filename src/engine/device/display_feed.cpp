#include "engine/device/display_feed.h"

#include <bit>

namespace tandem {

namespace {
constexpr std::uint64_t kFeedMask = DisplayFeed::kCapacity - 1;
}

void DisplayFeed::write(std::span<const StereoFrame> frames) noexcept {
  const std::uint64_t at = written_.load(std::memory_order_relaxed);
  announced_.store(at + frames.size(), std::memory_order_relaxed);
  // Released, so that who sees a new frame also sees that it was announced.
  for (std::size_t i = 0; i < frames.size(); ++i)
    frames_[(at + i) & kFeedMask].store(std::bit_cast<std::uint64_t>(frames[i]), std::memory_order_release);
  written_.store(at + frames.size(), std::memory_order_release);
}

bool DisplayFeed::read(std::uint64_t until, std::span<StereoFrame> out) const noexcept {
  if (until > written() || until < out.size()) return false;
  const std::uint64_t from = until - out.size();
  for (std::size_t i = 0; i < out.size(); ++i)
    out[i] = std::bit_cast<StereoFrame>(frames_[(from + i) & kFeedMask].load(std::memory_order_acquire));
  return announced_.load(std::memory_order_relaxed) - from <= kCapacity;
}

}  // namespace tandem

// Where a deck's song stands, as one 64-bit number: the song's generation and the frame. So a reading belongs to the
// song that it was asked about, never to the one before.
// Threads: put() on the render thread, of() on the UI thread.
#pragma once

#include <atomic>
#include <cstdint>
#include <optional>

#include "engine/core/frames.h"

namespace tandem {

class DeckPosition {
 public:
  void put(std::uint32_t generation, Frames frame) noexcept {
    packed_.store((std::uint64_t{generation} << kFrameBits) | (static_cast<std::uint64_t>(frame) & kFrameMask),
                  std::memory_order_release);
  }
  // Nothing while the render thread has not come to this generation.
  std::optional<Frames> of(std::uint32_t generation) const noexcept {
    const std::uint64_t packed = packed_.load(std::memory_order_acquire);
    if (packed >> kFrameBits != (generation & kGenerationMask)) return std::nullopt;
    return static_cast<Frames>(packed & kFrameMask);
  }

 private:
  static constexpr int kFrameBits = 40;  // 289 days
  static constexpr std::uint64_t kFrameMask = (std::uint64_t{1} << kFrameBits) - 1;
  static constexpr std::uint64_t kGenerationMask = (std::uint64_t{1} << (64 - kFrameBits)) - 1;
  std::atomic<std::uint64_t> packed_{0};
};

}  // namespace tandem

// The levels of each 10 ms that were heard, on each side. UI thread only.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "displays/core/feed_watch.h"
#include "displays/core/sound_frame.h"

namespace tandem {

// Amplitudes 0 .. 1.
struct BlockLevel {
  SoundFrame greatest;  // sample
  SoundFrame average;   // of the rectified sound, scaled so that a sine reads its amplitude
  friend bool operator==(const BlockLevel&, const BlockLevel&) = default;
};

class BlockLevels {
 public:
  static constexpr std::size_t kBlock = 441;  // frames: 10 ms

  void feed(std::span<const SoundFrame> frames) noexcept;

  // The blocks completed since the last call, oldest first; none if no block was completed, then the last one still
  // counts. Without sound for 50 ms there is one silent block. Valid until the next feed(). After a long time only the
  // newest 32 are kept.
  std::span<const BlockLevel> advance(double seconds) noexcept;

  // Whether there was nothing but silence since the last advance() and in the block under way.
  bool silent() const noexcept;

 private:
  static constexpr std::size_t kKept = 32;

  void add(const SoundFrame& frame) noexcept;
  void finish_block() noexcept;

  std::array<BlockLevel, kKept> blocks_{};
  std::size_t count_ = 0;
  BlockLevel under_way_;  // its average is still the sum
  std::size_t filled_ = 0;
  bool taken_ = false;  // blocks_ have been returned by advance()
  FeedWatch watch_;
};

}  // namespace tandem

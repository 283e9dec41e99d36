// The greatest sample of each 10 ms that were heard, on each side. UI thread only.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "displays/core/feed_watch.h"
#include "displays/core/sound_frame.h"

namespace tandem {

class BlockPeaks {
 public:
  static constexpr std::size_t kBlock = 441;  // frames: 10 ms

  void feed(std::span<const SoundFrame> frames) noexcept;

  // The blocks completed since the last call, oldest first, amplitudes 0 .. 1; none if no block was completed, then
  // the last one still counts. Without sound for 50 ms there is one silent block. Valid until the next feed().
  // After a long time only the newest 32 are kept.
  std::span<const SoundFrame> advance(double seconds) noexcept;

  // Whether there was nothing but silence since the last advance() and in the block under way.
  bool silent() const noexcept;

 private:
  static constexpr std::size_t kKept = 32;

  void finish_block() noexcept;

  std::array<SoundFrame, kKept> blocks_{};
  std::size_t count_ = 0;
  SoundFrame greatest_;  // of the block under way
  std::size_t filled_ = 0;
  bool taken_ = false;  // blocks_ have been handed out
  FeedWatch watch_;
};

}  // namespace tandem

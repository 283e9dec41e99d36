// The limiter before the output: keeps both channels within full scale; bit-transparent (only delayed) while no sample
// exceeds it.
// Render thread only; nothing here allocates, locks or throws.
// Looks ahead by its delay: the gain comes down before a peak and has arrived when the peak sounds. A short overshoot
// is turned down for itself and in its own channel, a lasting one in both channels alike and with a slow return: see
// limiter_envelope.h. A frame with a sample that is infinite or no number becomes silence.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "engine/core/frames.h"
#include "engine/render/limiter_envelope.h"

namespace tandem {

class Limiter {
 public:
  static constexpr int kDelay = LimiterEnvelope::kAhead + LimiterEnvelope::kBlock;  // frames, in to out: 1.8 ms

  // In place; any number of frames.
  void process(std::span<StereoFrame> in_out) noexcept;

  // Forgets all sound and returns to full gain.
  void reset() noexcept { *this = Limiter(); }

 private:
  static constexpr std::size_t kBlock = LimiterEnvelope::kBlock;
  using Block = std::span<StereoFrame, kBlock>;

  Block block_at(std::size_t frame) noexcept { return Block(sound_.data() + frame, kBlock); }
  void end_block() noexcept;

  std::array<StereoFrame, kDelay> sound_{};  // the block that fills, and after it the oldest, which is being given out
  std::size_t place_ = 0;
  LimiterEnvelope envelope_;
};

}  // namespace tandem

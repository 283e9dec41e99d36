// The limiter before the output: keeps both channels within full scale, and is not there while nothing exceeds it.
// Render thread only; nothing here allocates, locks or throws.
// Looks ahead by its delay: the gain comes down smoothly before a peak, stays for a while, and returns smoothly to
// exactly 1. Both channels get the same gain, so that the image does not move. While neither the look-ahead nor the
// hold has a sample beyond full scale and the gain has returned, the output is the delayed input bit for bit.
// A frame with a sample that is infinite or no number becomes silence.
// Works in cells of 16 frames: one peak and one gain for each, and straight lines between the gains.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "engine/core/frames.h"

namespace tandem {

class Limiter {
 public:
  static constexpr std::size_t kCell = 16;      // frames
  static constexpr std::size_t kLookAhead = 4;  // cells over which the gain comes down: 1.45 ms
  static constexpr std::size_t kRemembered =
      40;  // cells, look-ahead and hold: the waves of tones above 36 Hz are not followed
  static constexpr int kDelay = static_cast<int>((kLookAhead + 1) * kCell);  // frames from input to output: 1.8 ms
  static constexpr double kReleaseSeconds = 0.06;                            // time constant of the return

  Limiter() noexcept { needed_.fill(1.0F); }

  // In place; any number of frames.
  void process(std::span<StereoFrame> in_out) noexcept;

  // Forgets all sound and returns to full gain.
  void reset() noexcept { *this = Limiter(); }

 private:
  using Cell = std::span<StereoFrame, kCell>;

  Cell cell(std::size_t index) noexcept { return Cell(sound_.data() + index * kCell, kCell); }
  void end_cell() noexcept;
  bool at_rest() const noexcept { return calm_ == kRemembered; }
  float next_gain(float peak) noexcept;

  std::array<StereoFrame, kDelay> sound_{};  // the cell that fills, and behind it the oldest, which is being given out
  std::size_t place_ = 0;

  std::array<float, kRemembered> needed_;  // the gain that each of the last cells needs
  std::size_t newest_ = 0;
  std::array<float, kLookAhead> envelope_{1.0F, 1.0F, 1.0F, 1.0F};  // the least of them, with the release; newest first
  float gain_ = 1.0F;                                               // where the last straight line ended
  std::size_t calm_ = kRemembered;                                  // cells since anything was below 1
};

}  // namespace tandem

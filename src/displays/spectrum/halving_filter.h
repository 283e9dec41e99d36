// Halves the rate of stereo sound for the lower bands of the spectrum. UI thread only.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "displays/core/sound_frame.h"

namespace tandem {

// A linear-phase half-band filter: every second tap but the middle one is zero.
// Source: F. J. Harris, "Multirate Signal Processing for Communication Systems", 2004, chapter 8 (windowed design).
class HalvingFilter {
 public:
  // pairs: taps that are not zero on each side of the middle one. What would fold back onto the frequencies up to a
  // fifth of the new rate is 50 dB down at 3 pairs, onto those up to two fifths at 8. Blocks of at most largest_in
  // frames.
  HalvingFilter(std::size_t pairs, std::size_t largest_in);

  // in.size() is even; out.size() is half of it. Doesn't allocate.
  void halve(std::span<const SoundFrame> in, std::span<SoundFrame> out) noexcept;
  void clear() noexcept;

 private:
  std::size_t older() const noexcept { return 2 * taps_.size() - 1; }  // frames of each line that the taps still reach

  std::vector<float> taps_;  // outwards from the middle; the middle tap is 1/2
  // The older frames, then the block, by turns: the outer taps lie on the one, the middle tap on the other.
  std::vector<SoundFrame> outer_;
  std::vector<SoundFrame> middle_;
};

}  // namespace tandem

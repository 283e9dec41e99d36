// The power spectrum of a piece of stereo sound. UI thread only.
// Left is the real part and right the imaginary part of one complex transform; the two spectra are separated by their
// symmetry (Press et al., "Numerical Recipes", section 12.3: two real functions in one transform).
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "displays/core/sound_frame.h"
#include "displays/spectrum/complex_fft.h"
#include "displays/spectrum/fft_window.h"

namespace tandem {

class StereoSpectrum {
 public:
  void prepare(std::size_t length, FftWindow window);  // length: a power of two from 16; allocates

  // frames.size() is length(). Only the bins first .. end - 1 get their power; end is at most length() / 2.
  void analyse(std::span<const SoundFrame> frames, std::size_t first, std::size_t end) noexcept;

  // As if nothing had been analysed yet.
  void clear() noexcept;

  // The power of each bin, such that the powers of all bins about a sine of amplitude 1 add up to 1, whatever the
  // window. Bin k lies at k x rate / length.
  std::span<const float> power(std::size_t side) const noexcept { return power_[side]; }
  std::size_t length() const noexcept { return window_.size(); }

 private:
  void separate(std::size_t first, std::size_t end) noexcept;

  std::vector<float> window_;  // scaled, so that the sum of its squares is 1 / length
  ComplexFft fft_;
  BothSides<std::vector<float>> power_;
};

}  // namespace tandem

// The power spectrum of a piece of stereo sound. UI thread only.
// Left is the real part and right the imaginary part of one complex transform; the two spectra are separated by their
// symmetry (Press et al., "Numerical Recipes", section 12.3: two real functions in one transform).
#pragma once

#include <kiss_fft.h>

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "displays/core/sound_frame.h"
#include "displays/spectrum/fft_window.h"

namespace tandem {

class StereoSpectrum {
 public:
  void prepare(std::size_t length, FftWindow window);  // length: a power of two from 4; allocates

  // frames.size() is length(). Only the bins first .. end - 1 get their power; end is at most length() / 2.
  void analyse(std::span<const SoundFrame> frames, std::size_t first, std::size_t end) noexcept;

  // As if nothing had been analysed yet.
  void clear() noexcept;

  // The power of each bin, such that the powers of all bins about a sine of amplitude 1 add up to 1, whatever the
  // window. Bin k lies at k x rate / length.
  std::span<const float> power(std::size_t side) const noexcept { return power_[side]; }
  std::size_t length() const noexcept { return window_.size(); }

 private:
  struct Release {
    void operator()(kiss_fft_cfg plan) const noexcept { kiss_fft_free(plan); }
  };

  std::unique_ptr<kiss_fft_state, Release> plan_;
  std::vector<float> window_;  // scaled, so that the sum of its squares is 1 / length
  std::vector<kiss_fft_cpx> time_;
  std::vector<kiss_fft_cpx> bins_;
  BothSides<std::vector<float>> power_;
};

}  // namespace tandem

// The spectrum of the newest sound on both sides. UI thread only.
// Left is the real part and right the imaginary part of one complex transform; the two spectra are taken apart by
// their symmetry.
#pragma once

#include <kiss_fft.h>

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "displays/core/heard_sound.h"
#include "displays/core/sound_frame.h"
#include "displays/spectrum/fft_window.h"

namespace tandem {

class StereoSpectrum {
 public:
  void prepare(std::size_t length, FftWindow window);  // length: a power of two from 4

  void analyse(const HeardSound& sound) noexcept;

  // The squared amplitude of each bin 0 .. length / 2 - 1, corrected for the window: a full-scale sine is 1.
  // Bin k lies at k x 44100 / length Hz.
  std::span<const float> power(std::size_t side) const noexcept { return power_[side]; }
  std::size_t length() const noexcept { return window_.size(); }

 private:
  struct Release {
    void operator()(kiss_fft_cfg plan) const noexcept { kiss_fft_free(plan); }
  };

  void lay_window() noexcept;
  void take_apart() noexcept;

  std::unique_ptr<kiss_fft_state, Release> plan_;
  std::vector<float> window_;  // scaled to a sum of 1
  std::vector<SoundFrame> frames_;
  std::vector<kiss_fft_cpx> time_;
  std::vector<kiss_fft_cpx> bins_;
  BothSides<std::vector<float>> power_;
};

}  // namespace tandem

// The power of stereo sound in the bands of a logarithmic axis, with the resolution of the ear: long transforms for low
// frequencies, short ones for high frequencies. UI thread only.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "displays/core/sound_frame.h"
#include "displays/spectrum/fft_window.h"
#include "displays/spectrum/frequency_axis.h"
#include "displays/spectrum/halving_filter.h"
#include "displays/spectrum/spectrum_stage.h"

namespace tandem {

// Three transforms at three rates: 186 ms below 250 Hz, 46 ms to 2 kHz and 23 ms above, each half to twice as long by
// `sharpness`. They overlap by half or more and are made as the sound comes, the short one 86 times a second at
// sharpness 1 and the two others by turns, so that no sound is left out and the picture does not depend on how many
// pictures are shown.
class BandAnalyser {
 public:
  BandAnalyser();

  // sharpness 0.5, 1 or 2: factor of the lengths. As many bands as columns, of equal width on the axis. Allocates.
  void prepare(double sharpness, FftWindow window, const FrequencyAxis& axis, std::size_t bands);

  void feed(std::span<const SoundFrame> frames) noexcept;
  // The greatest power of each band since the last call; a sine of amplitude 1 reads 1. False, and powers unchanged, if
  // no transform was due. powers[side].size() is the number of bands.
  bool take(BothSides<std::vector<float>>& powers) noexcept;
  // As if it had never heard anything.
  void clear() noexcept;
  // Whether nothing but silence is left in any transform.
  bool silent() const noexcept { return quiet_ >= kMemory && !fresh_; }

 private:
  static constexpr std::size_t kHop = 512;  // frames from transform to transform at sharpness 1
  static constexpr std::size_t kLongestHop = 1024;
  static constexpr std::size_t kMemory = 1 << 15;  // more frames than filters and windows reach back
  static constexpr std::size_t kStages = 3;
  static constexpr std::size_t kHalvings = 6;

  void keep(std::span<const SoundFrame> frames) noexcept;
  void hop() noexcept;
  void add_halved(std::span<const SoundFrame> frames) noexcept;

  std::array<SpectrumStage, kStages> stages_;
  std::vector<HalvingFilter> filters_;
  std::array<std::vector<SoundFrame>, kHalvings> halved_;
  std::vector<SoundFrame> pending_;
  std::size_t hop_ = kHop;
  std::size_t filled_ = 0;
  std::size_t turn_ = 0;         // which of the two long transforms is due
  std::size_t quiet_ = kMemory;  // zero frames at the end
  bool fresh_ = false;
  BothSides<std::vector<float>> greatest_;
};

}  // namespace tandem

// The interpolation filters of the pitch stage: windowed sincs, one bank for each range of ratios.
//   Up: one bank for every half semitone. A sound that is read faster than it was written moves up beyond what 44100 Hz
//   can carry; every bank stops at 24.1 kHz of the sound given, so what folds back stays above 20 kHz.
//   Down to 0.907, and at ratio 1: one bank that passes 20 kHz; the images of the song lie above 20 kHz of the sound
//   given. Further down they would be heard: another bank stops at half the sample rate of the song and passes 19 kHz
//   of it, which is 17.4 kHz or less of the sound given.
// Kaiser windows of 100 dB; 75 dB in the last case, where the transition band is what counts.
// Sources: J. O. Smith, Digital Audio Resampling Home Page; J. F. Kaiser's window and his estimate of its length.
// Made on the UI thread by the first call of interpolation_filters(), read by any thread afterwards. 1.5 MB.
#pragma once

#include <cstddef>
#include <vector>

namespace tandem {

class InterpolationFilters {
 public:
  static constexpr std::size_t kBanks = 10;  // far down, down to unison, then up to 4 semitones in half semitones

  InterpolationFilters();

  // The bank for a ratio (frames read for each frame given).
  static std::size_t bank_for(double ratio) noexcept;
  // The rows of a bank, in the shape that interpolate() takes.
  const float* rows(std::size_t bank) const noexcept;

 private:
  std::vector<float> rows_;
};

const InterpolationFilters& interpolation_filters();

}  // namespace tandem

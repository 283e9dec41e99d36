// The interpolation filters of the pitch stage: windowed sincs (Kaiser window, 100 dB), one bank for every half
// semitone upwards. Reading a sound faster than it was written moves its top beyond what 44100 Hz can carry, so every
// bank stops at 24.1 kHz of what is given: what folds back stays above 20 kHz. Downwards one bank serves all.
// Source: J. O. Smith, Digital Audio Resampling; J. F. Kaiser's window and length estimate.
// Made on the UI thread by the first call of pitch_filters(), read by any thread afterwards.
#pragma once

#include <cstddef>
#include <vector>

namespace tandem {

class PitchFilters {
 public:
  static constexpr std::size_t kBanks = 9;  // ratios up to 1, then up to 4 semitones in half semitones

  PitchFilters();

  // The bank for a ratio (frames read for each frame given).
  static std::size_t bank_for(double ratio) noexcept;
  // Its rows, in the shape that interpolate() takes.
  const float* rows(std::size_t bank) const noexcept;

 private:
  std::vector<float> rows_;
};

const PitchFilters& pitch_filters();

}  // namespace tandem

// From band gains to a filter: the impulse response whose level is that of each band, at minimum phase.
// Any thread but the render thread: allocates, takes a few milliseconds.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "engine/equalizer/equalizer_filter.h"

namespace tandem {

// One band of the equalizer: its edges in Hz, its gain in dB (0 = unchanged).
// Bands stand in ascending order; between two bands the upper one reaches down, above the last one its gain is held.
struct EqualizerBand {
  double low_hz;
  double high_hz;
  double gain_db;
};

// The impulse response, EqualizerFilter::kTaps long. Method: the exact response of the piecewise constant target,
// cut by a Kaiser window with beta 4, then made minimum-phase by folding the real cepstrum (Oppenheim and Schafer,
// Discrete-Time Signal Processing). Equal gains give a single tap.
std::vector<float> design_taps(std::span<const EqualizerBand> bands);

// The filter ready for use, or nullptr when every gain is 0 (nothing to do).
std::unique_ptr<const EqualizerFilter> design_filter(std::span<const EqualizerBand> bands);

}  // namespace tandem

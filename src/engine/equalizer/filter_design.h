// From band gains to a filter: the impulse response whose level is that of each band, at minimum phase.
// Any thread but the render thread: allocates, takes a few milliseconds.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "engine/equalizer/band_curve.h"
#include "engine/equalizer/equalizer_filter.h"

namespace tandem {

// The impulse response, EqualizerFilter::kTaps long: the minimum-phase response of the bands' curve (band_curve.h),
// with its group delay limited (group_delay_limit.h). Equal gains give a single tap. Method: folding the real cepstrum
// (Oppenheim and Schafer, Discrete-Time Signal Processing).
std::vector<float> design_taps(std::span<const EqualizerBand> bands);

// The filter ready for use, or nullptr when every gain is 0 (nothing to do).
std::unique_ptr<const EqualizerFilter> design_filter(std::span<const EqualizerBand> bands);

}  // namespace tandem

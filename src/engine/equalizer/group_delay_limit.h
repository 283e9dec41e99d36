// Rounds a level curve where its minimum-phase response would delay some frequencies too much, and so would ring: with
// neighbouring bass bands far apart, a slope from centre to centre is too steep for their few Hz. Levels at the centres
// stay (within 0.36 dB). Curves that delay less than 13 ms, as nearly all do, are left as they are;
// of 400 random ones, half of them of +12 and -12 dB only, the longest delay is 15.04 ms.
// Any thread but the render thread: allocates, takes up to some milliseconds.
//
// Method: projections onto convex sets (Gubin, Polyak and Raik 1967), in turn onto the curves whose group delay is at
// most 14.2 ms, those whose cepstrum ends at 40 ms, and those that pass through the centres. All three are convex, for
// the group delay of a minimum-phase response is a linear function of its level: with the cepstrum c of ln |H|, the
// delay is the spectrum of n c(n) (Oppenheim and Schafer, Discrete-Time Signal Processing, on the complex cepstrum).
#pragma once

#include <span>

#include "engine/equalizer/band_curve.h"

namespace tandem {

// `curve`: levels in dB from 0 Hz up to half the sample rate, 2^14 + 1 of them. Changes what lies below 1400 Hz.
void limit_group_delay(std::span<float> curve, std::span<const BandCentre> centres);

}  // namespace tandem

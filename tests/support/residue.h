// Total harmonic distortion and noise of a sum of tones.
#pragma once

#include <span>
#include <vector>

#include "engine/core/frames.h"

namespace tandem::test {

// What is left of the left channel's second second besides the tones of these frequencies (whole Hz), against all of
// it, in dB. `sound` has two seconds at 44.1 kHz or more.
double residue_db(std::span<const StereoFrame> sound, const std::vector<double>& tones);

}  // namespace tandem::test

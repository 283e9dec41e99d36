// The spectrum of a recorded tone under a Kaiser window (beta 24: side lobes below -170 dB): its level, and the loudest
// of what is not the tone.
#pragma once

#include <span>

#include "engine/core/frames.h"

namespace tandem::test {

class ToneSpectrum {
 public:
  // Left channel, 2^16 frames from the middle of the sound.
  ToneSpectrum(std::span<const StereoFrame> sound, double rate, double hz);

  double level() const { return level_; }  // dBFS: 0 is a sine of full scale
  double worst() const { return worst_; }  // dBFS, of anything between 20 Hz and half the rate
  double worst_hz() const { return worst_hz_; }

 private:
  double level_ = 0;
  double worst_ = 0;
  double worst_hz_ = 0;
};

}  // namespace tandem::test

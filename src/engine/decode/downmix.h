// Brings sound of any number of channels to stereo, with every channel heard.
// Any thread once made.
//
// More than two channels keep the proportions of ITU-R BS.775 (front 0 dB, centre, back and side -3 dB) and are turned
// down together, so that full scale on all of them at once is full scale: 7.7 dB for 5.1, 9.9 dB for 7.1. The channel
// of low frequencies, which BS.775 leaves out, is not counted: it is added at -6 dB beside the front, and where it
// makes the sum too loud (by 1.6 dB at most for 5.1) the limiter has it.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "engine/core/frames.h"

namespace tandem {

class Downmix {
 public:
  // `channel_mask`: one bit for each channel's place, as in WAV files; 0 for the usual places of as many.
  Downmix(int channels, std::uint32_t channel_mask);

  // `in` holds out.size() frames, interleaved. Mono goes to both channels, stereo through unchanged.
  void process(std::span<const float> in, std::span<StereoFrame> out) const noexcept;

 private:
  void normalise(float sum) noexcept;

  std::vector<StereoFrame> gains_;  // of each channel
};

}  // namespace tandem

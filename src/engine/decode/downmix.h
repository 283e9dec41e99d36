// Brings sound of any number of channels to stereo, with every channel heard.
// Any thread once made.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "engine/core/frames.h"

namespace tandem {

class Downmix {
 public:
  // `speakers`: one bit for each channel's place, as WAV files tell it; 0 for the usual places of so many channels.
  Downmix(int channels, std::uint32_t speakers);

  // `in` holds out.size() frames, interleaved. Mono goes to both channels, stereo through unchanged.
  void process(std::span<const float> in, std::span<StereoFrame> out) const noexcept;

 private:
  std::vector<StereoFrame> gains_;  // of each channel
};

}  // namespace tandem

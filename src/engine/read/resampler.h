// Band-limited conversion of stereo sound to 44100 Hz with libsoxr, aligned: what went in at time t comes out at time
// t. Used by one thread at a time. Throws std::bad_alloc if there is no memory.
#pragma once

#include <cstddef>
#include <span>

#include "engine/core/frames.h"

struct soxr;

namespace tandem {

class Resampler {
 public:
  struct Step {
    std::size_t used = 0;  // frames taken from `in`
    std::size_t made = 0;  // frames put into `out`
  };

  explicit Resampler(int rate);  // Hz, of what goes in
  Resampler(const Resampler&) = delete;
  Resampler& operator=(const Resampler&) = delete;
  ~Resampler();

  void reset();  // forgets all sound

  // An empty `in` means that the sound has ended: then what is still held back comes out. Throws if the library fails.
  Step process(std::span<const StereoFrame> in, std::span<StereoFrame> out);

 private:
  soxr* soxr_;
};

}  // namespace tandem

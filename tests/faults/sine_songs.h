// Songs in which every frame that is lost, repeated or put in can be heard by a machine: steady sines, faded at both
// ends, of two frequencies in turn, so that overlaps are as smooth as the rest.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "engine/core/frames.h"
#include "engine/device/output_ring.h"
#include "support/bytes.h"

namespace tandem::test {

// A stereo WAV file of 16 bits.
Bytes sine_song(std::size_t number, double seconds);

struct Heard {
  std::size_t begin = 0;            // the first frame that sounds
  std::size_t end = 0;              // one past the last
  std::vector<std::size_t> breaks;  // frames between them where the sines do not go on; 50 ms count as one place
  std::size_t longest_silence = 0;  // frames, between them
  std::size_t frames() const { return end - begin; }
};

Heard listen(std::span<const Sample16> recording);

// Without the silences of 10 ms and more.
std::vector<Sample16> without_silences(std::span<const Sample16> recording);

}  // namespace tandem::test

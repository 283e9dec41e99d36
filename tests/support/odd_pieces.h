// A sound that is processed in pieces of all lengths.
#pragma once

#include <algorithm>
#include <cstddef>
#include <random>
#include <span>

#include "engine/core/frames.h"

namespace tandem::test {

// Passes the sound on in pieces of 1 to 512 frames, at random from a fixed seed.
template <class Process>
void process_in_odd_pieces(std::span<StereoFrame> sound, Process process) {
  std::mt19937 random(8);
  for (std::size_t at = 0; at < sound.size();) {
    const std::size_t count = std::min<std::size_t>(1 + random() % 512, sound.size() - at);
    process(sound.subspan(at, count));
    at += count;
  }
}

}  // namespace tandem::test

// Frames that say which one of their song they are. Any thread.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/core/frames.h"

namespace tandem::test {

// Every frame holds its own number: exact in a float up to 2^24.
inline StereoFrame numbered(std::uint64_t number) {
  const auto value = static_cast<float>(number & 0xFFFFFF);
  return {value, -value};
}

inline std::vector<StereoFrame> numbers(std::uint64_t from, std::size_t count) {
  std::vector<StereoFrame> frames(count);
  for (std::size_t i = 0; i < count; ++i) frames[i] = numbered(from + i);
  return frames;
}

}  // namespace tandem::test

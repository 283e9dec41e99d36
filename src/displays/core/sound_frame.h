// What the displays are given: stereo frames at 44100 Hz, full scale -1 .. 1. Values; any thread.
#pragma once

#include <array>
#include <cstddef>

namespace tandem {

struct SoundFrame {
  float left = 0.0F;
  float right = 0.0F;
  friend bool operator==(const SoundFrame&, const SoundFrame&) = default;
};

inline constexpr double kHeardRate = 44100.0;  // frames a second
inline constexpr std::size_t kSides = 2;       // 0 left, 1 right

template <class T>
using BothSides = std::array<T, kSides>;

}  // namespace tandem

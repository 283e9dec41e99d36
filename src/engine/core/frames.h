// The one internal sound format: 32-bit float, stereo, 44100 frames a second, full scale 1.0.
// Any thread. Buffers of frames are contiguous and interleaved (left, right).
#pragma once

#include <cstdint>

namespace tandem {

using Frames = std::int64_t;  // a count of stereo frames, or a position in frames

inline constexpr int kSampleRate = 44100;     // frames a second
inline constexpr int kStepFrames = 441;       // one step of the mixer: 10 ms
inline constexpr int kStepMilliseconds = 10;  // the same in time

struct StereoFrame {
  float left = 0.0F;
  float right = 0.0F;
  friend bool operator==(const StereoFrame&, const StereoFrame&) = default;
};
static_assert(sizeof(StereoFrame) == 2 * sizeof(float));

// Milliseconds of a whole number of frames, rounded down, and the first frame of a millisecond.
constexpr std::int64_t milliseconds_of(Frames frames) { return frames * 1000 / kSampleRate; }
constexpr Frames frames_of(std::int64_t milliseconds) { return milliseconds * kSampleRate / 1000; }

}  // namespace tandem

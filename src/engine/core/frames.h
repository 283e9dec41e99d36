// The one internal sound format: 32-bit float, stereo, 44100 frames a second, full scale 1.0; and the 16-bit frame.
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

// A frame as a 16-bit device takes it. The panel counts its buffers in bytes of these.
struct Sample16 {
  std::int16_t left = 0;
  std::int16_t right = 0;
  friend bool operator==(const Sample16&, const Sample16&) = default;
};
static_assert(sizeof(Sample16) == 4);

// Milliseconds of a whole number of frames, rounded down, and the first frame of a millisecond.
constexpr std::int64_t milliseconds_of(Frames frames) { return frames * 1000 / kSampleRate; }
constexpr Frames frames_of(std::int64_t milliseconds) { return milliseconds * kSampleRate / 1000; }

}  // namespace tandem

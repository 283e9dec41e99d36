// The sections of a song: stretches of one sample rate. Most songs have one; an MPEG stream may change its rate.
// Any thread; pure functions.
#pragma once

#include "engine/core/frames.h"

namespace tandem {

inline constexpr int kLowestRate = 100;  // Hz; songs of rates outside these two are refused
inline constexpr int kHighestRate = 1'536'000;

// `frames` at `rate` as a length at 44100 Hz, rounded to the nearest frame.
constexpr Frames length_at_sample_rate(Frames frames, int rate) {
  return frames / rate * kSampleRate + (frames % rate * kSampleRate + rate / 2) / rate;
}

// The number of frames at `rate` that last at least as long as `frames` at 44100 Hz.
constexpr Frames length_at_rate(Frames frames, int rate) {
  return frames / kSampleRate * rate + (frames % kSampleRate * rate + kSampleRate - 1) / kSampleRate;
}

}  // namespace tandem

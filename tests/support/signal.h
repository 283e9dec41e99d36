// Test signals and how to compare sounds.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "engine/core/frames.h"

namespace tandem::test {

using Sound = std::vector<StereoFrame>;
using Samples = std::vector<double>;  // interleaved, full scale 1.0

struct Signal {
  int rate = kSampleRate;
  int channels = 2;
  Samples samples;
  Frames frames() const { return static_cast<Frames>(samples.size()) / channels; }
};

// Something like music, different in every channel and never repeating: gliding tones with a beat, below 9 kHz.
// The same sound at every rate.
Signal music(double seconds, int rate = kSampleRate, int channels = 2);

// A sine of its own frequency (hertz, 2 x hertz, 3 x hertz ...) in every channel.
Signal tones(double seconds, double hertz, double amplitude, int rate = kSampleRate, int channels = 2);

Sound to_stereo(const Signal& signal);  // of one or two channels, as float, at its own rate

// By how many frames `later` lags `reference` (at most `reach` either way), by cross-correlation of the sum of
// both channels over `frames` frames from `from` on.
Frames lag(std::span<const StereoFrame> reference, std::span<const StereoFrame> later, Frames from, Frames frames,
           Frames reach);

// Energy of `reference` over energy of the difference, in dB, over the common length; 300 if they are equal.
double snr_db(std::span<const StereoFrame> reference, std::span<const StereoFrame> sound);

float greatest_difference(std::span<const StereoFrame> a, std::span<const StereoFrame> b);
double rms(std::span<const StereoFrame> sound);  // of both channels together

// Amplitude of a sine of this frequency in one channel: 0 left, 1 right.
double tone_amplitude(std::span<const StereoFrame> sound, int channel, double hertz);

}  // namespace tandem::test

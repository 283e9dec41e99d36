// Sound for the report: made, taken through other programs, measured. One thread.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "engine/core/frames.h"

namespace tandem::report {

using Sound = std::vector<StereoFrame>;

inline constexpr std::size_t kSecond = kSampleRate;

// `value` for every frame, in both channels.
Sound mono(std::size_t frames, const std::function<double(std::size_t)>& value);
Sound tone(double hz, double dbfs, double seconds, double rate = kSampleRate);

// True if the shell finds that program.
bool has(const std::string& program);

// The sound after a shell command in which IN stands for a float WAV file with it and OUT for the WAV file to be made;
// empty if the command fails.
Sound through(const Sound& sound, const std::string& command, int rate = kSampleRate);

void write_wav(const std::string& path, const Sound& sound, int rate = kSampleRate, int bits = 32);  // 32: float
Sound read_wav(const std::string& path);

// Power in dB.
double decibels(double power);

// The amplitude in dBFS of one tone, over the whole sound in a Blackman-Harris window.
double level_db(const Sound& sound, double hz, double rate = kSampleRate);

// Energy further than `reach` Hz from the tone, against all of it, in dB; the left channel, same window.
double off_tone_db(const Sound& sound, double hz, double reach);

struct Spectrum {
  std::vector<double> level_db;  // dBFS of a sine at each bin
  double spacing_hz = 0.0;
};
// Of the first power of two of frames that fits.
Spectrum spectrum_of(const Sound& sound, double rate = kSampleRate);
// The highest level further than `reach` Hz from the tone.
double highest_spur_db(const Spectrum& spectrum, double hz, double reach);

}  // namespace tandem::report

// Test sounds and measures for the pitch stage.
#pragma once

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstddef>
#include <initializer_list>
#include <numbers>
#include <random>
#include <span>
#include <vector>

#include "engine/core/frames.h"

namespace tandem {

inline double decibel(double amplitude) { return 20.0 * std::log10(std::max(amplitude, 1e-12)); }
inline double ratio_of_semitones(double semitones) { return std::exp2(semitones / 12.0); }

// The sum of sines of equal amplitude, full scale 0.5; the right channel is half as loud.
inline std::vector<StereoFrame> tones(std::size_t frames, std::initializer_list<double> frequencies) {
  std::vector<StereoFrame> sound(frames);
  for (std::size_t i = 0; i < frames; ++i) {
    double sum = 0.0;
    for (const double f : frequencies)
      sum += std::sin(2.0 * std::numbers::pi * f * static_cast<double>(i) / kSampleRate);
    sum *= 0.5 / static_cast<double>(frequencies.size());
    sound[i] = {static_cast<float>(sum), static_cast<float>(sum / 2.0)};
  }
  return sound;
}

inline std::vector<StereoFrame> noise(std::size_t frames, unsigned seed = 1) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<float> value(-0.5F, 0.5F);
  std::vector<StereoFrame> sound(frames);
  for (StereoFrame& frame : sound) frame = {value(random), value(random)};
  return sound;
}

// Everything but the wave of one frequency: dB of what is left, against that wave. Least squares over the whole
// stretch.
inline double residue_db(std::span<const StereoFrame> sound, double frequency) {
  const auto angle = [frequency](std::size_t i) {
    return 2.0 * std::numbers::pi * frequency * static_cast<double>(i) / kSampleRate;
  };
  double cc = 0.0, ss = 0.0, cs = 0.0, xc = 0.0, xs = 0.0, xx = 0.0;
  for (std::size_t i = 0; i < sound.size(); ++i) {
    const double c = std::cos(angle(i));
    const double s = std::sin(angle(i));
    const auto x = static_cast<double>(sound[i].left);
    cc += c * c, ss += s * s, cs += c * s, xc += x * c, xs += x * s, xx += x * x;
  }
  const double det = cc * ss - cs * cs;
  const double a = (xc * ss - xs * cs) / det;
  const double b = (xs * cc - xc * cs) / det;
  const double wave = a * xc + b * xs;
  return 10.0 * std::log10(std::max(xx - wave, 1e-30) / wave);
}

// The plain inner loop of the filter below; nothing in it is worth a thread checker's time.
inline __attribute__((no_sanitize("thread"))) float filtered_peak(const float* sound, std::size_t places,
                                                                  const float* taps, std::size_t count) {
  float peak = 0.0F;
  for (std::size_t at = 0; at < places; ++at) {
    float value = 0.0F;
    for (std::size_t i = 0; i < count; ++i) value += taps[i] * sound[at + i];
    peak = std::max(peak, std::abs(value));
  }
  return peak;
}

// The peak of what lies above 4 kHz, in dB of full scale: a click shows here, tones below 2 kHz do not (-120 dB).
inline double high_peak_db(std::span<const StereoFrame> sound) {
  constexpr int kHalf = 100;
  constexpr double kCut = 3000.0 / kSampleRate;
  std::vector<float> taps(2 * kHalf + 1);
  for (int i = -kHalf; i <= kHalf; ++i) {
    const double x = static_cast<double>(i) / (kHalf + 1);
    const double window = std::cyl_bessel_i(0.0, 13.0 * std::sqrt(1.0 - x * x)) / std::cyl_bessel_i(0.0, 13.0);
    const double low = i == 0 ? 2.0 * kCut : std::sin(2.0 * std::numbers::pi * kCut * i) / (std::numbers::pi * i);
    taps[static_cast<std::size_t>(i + kHalf)] = static_cast<float>((i == 0 ? 1.0 : 0.0) - window * low);
  }
  std::vector<float> left;
  for (const StereoFrame& frame : sound) left.push_back(frame.left);
  return decibel(static_cast<double>(filtered_peak(left.data(), left.size() - taps.size(), taps.data(), taps.size())));
}

}  // namespace tandem

// Filters exchanged while the sound runs.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <numbers>
#include <string>
#include <vector>

#include "engine/equalizer/band_equalizer_rig.h"

namespace tandem {
namespace {

using namespace equalizer_test;

Sound sine(double hz, float amplitude, std::size_t frames) {
  Sound sound(frames);
  for (std::size_t n = 0; n < frames; ++n) {
    const double angle = 2.0 * std::numbers::pi * hz * static_cast<double>(n) / kSampleRate;
    sound[n].left = amplitude * static_cast<float>(std::sin(angle));
    sound[n].right = -sound[n].left;
  }
  return sound;
}

// The peak of what lies above 4 kHz in the left channel: a linear-phase high-pass of 1023 taps under a Kaiser window
// with beta 12 (stop band below -115 dB from 3.8 kHz down).
double residue_above_4k(const Sound& sound) {
  constexpr int kHalf = 511;
  constexpr double kEdge = 2.0 * 4200.0 / kSampleRate;
  std::vector<double> taps;
  for (int n = -kHalf; n <= kHalf; ++n) {
    const double x = static_cast<double>(n) / (kHalf + 1);
    const double window = std::cyl_bessel_i(0.0, 12.0 * std::sqrt(1.0 - x * x)) / std::cyl_bessel_i(0.0, 12.0);
    const double place = std::numbers::pi * n;
    const double low_pass = n == 0 ? kEdge : std::sin(kEdge * place) / place;
    taps.push_back(window * ((n == 0 ? 1.0 : 0.0) - low_pass));
  }
  double peak = 0.0;
  for (std::size_t n = 0; n + taps.size() <= sound.size(); ++n) {
    double sum = 0.0;
    for (std::size_t k = 0; k < taps.size(); ++k) sum += taps[k] * double{sound[n + k].left};
    peak = std::max(peak, std::abs(sum));
  }
  return 20.0 * std::log10(std::max(peak, 1e-12));
}

// -90 dBFS is below the last bit of 16-bit sound.
constexpr double kInaudible = -90.0;

TEST(BandEqualizerFade, DraggingASliderLeavesNoNoise) {
  // The whole way of a slider and back four times a second, up to three of its steps at once; +12 dB is full scale.
  std::map<int, std::vector<float>> taps;
  for (int gain = -12; gain <= 12; ++gain) taps[gain] = design_taps(bands_of(0, gain, 0));
  Sound sound = sine(900.0, 0.25F, kSampleRate);
  Rig rig;
  rig.play_steps(sound, [&](std::size_t n) {
    const double place = static_cast<double>(n) / static_cast<double>(sound.size());
    rig.adopt_taps(taps[static_cast<int>(std::lround(12.0 * std::sin(8.0 * std::numbers::pi * place)))]);
  });
  const double residue = residue_above_4k(Sound(sound.begin() + 1000, sound.end()));
  RecordProperty("residue_dbfs", std::to_string(residue));
  EXPECT_LT(residue, kInaudible);
  EXPECT_LE(rig.filters_out(), 3U);  // at most two in a fade and one that waits
}

TEST(BandEqualizerFade, AJumpLeavesNoClick) {
  Sound sound = sine(900.0, 0.25F, kSampleRate);
  Rig rig;
  rig.play_steps(sound, [&](std::size_t n) {
    if (n == 20 * kStepFrames) rig.adopt(bands_of(0, 12, 0));
    if (n == 40 * kStepFrames) rig.adopt(bands_of(12, -12, 12));
    if (n == 60 * kStepFrames) rig.equalizer.adopt(nullptr);
  });
  EXPECT_LT(residue_above_4k(Sound(sound.begin() + 1000, sound.end())), kInaudible);
}

TEST(BandEqualizerFade, OfSeveralThatWaitTheNewestIsTaken) {
  const Sound in = seeded_noise(20000, 10);
  Sound out = in;
  Rig rig;
  rig.adopt(bands_of(1, 1, 1));
  rig.play(std::span(out).first(300));  // the fade runs
  for (const double gain : {2.0, 3.0, 6.0}) rig.adopt(bands_of(gain, gain, gain));
  EXPECT_EQ(rig.filters_out(), 2U);
  rig.play(std::span(out).subspan(300));
  EXPECT_EQ(rig.filters_out(), 1U);
  const float up = std::pow(10.0F, 6.0F / 20.0F);
  for (std::size_t n = 3000; n < in.size() - kDelay; ++n) ASSERT_NEAR(out[n + kDelay].left, up * in[n].left, 5e-6F);
}

}  // namespace
}  // namespace tandem

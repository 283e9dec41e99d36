// The 16-bit end of the chain, heard as a 16-bit device would play it.
#include "engine/device/quantizer16.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <span>
#include <vector>

namespace tandem {
namespace {

using Sound = std::vector<StereoFrame>;
constexpr std::size_t kSecond = kSampleRate;

std::vector<Sample16> in_16_bits(const Sound& sound) {
  std::vector<Sample16> samples(sound.size());
  Quantizer16().convert(sound, samples);
  return samples;
}

Sound sine(double hz, double dbfs) {
  Sound sound(4 * kSecond);
  for (std::size_t n = 0; n < sound.size(); ++n) {
    const double turn = 2.0 * std::numbers::pi * hz * static_cast<double>(n) / kSampleRate;
    sound[n].left = sound[n].right = static_cast<float>(std::pow(10.0, dbfs / 20.0) * std::sin(turn));
  }
  return sound;
}

// The level in dBFS of one tone of a whole number of Hz, over whole seconds.
double level(const std::vector<Sample16>& samples, double hz) {
  std::complex<double> sum;
  for (std::size_t n = 0; n < samples.size(); ++n)
    sum += samples[n].left / 32768.0 *
           std::polar(1.0, -2.0 * std::numbers::pi * hz * static_cast<double>(n) / kSampleRate);
  return 20.0 * std::log10(2.0 * std::abs(sum) / static_cast<double>(samples.size()) + 1e-12);
}

TEST(Quantizer16, KeepsEveryValueThat16BitsHold) {
  Sound sound;
  for (int value = -32768; value <= 32767; ++value) sound.push_back({static_cast<float>(value) / 32768.0F, 0.0F});
  const auto samples = in_16_bits(sound);
  for (int value = -32768; value <= 32767; ++value)
    ASSERT_EQ(samples[static_cast<std::size_t>(value + 32768)], (Sample16{static_cast<std::int16_t>(value), 0}));
}

TEST(Quantizer16, ClipsWhatIsBeyondFullScale) {
  EXPECT_EQ(in_16_bits({{1.0F, -1.5F}})[0], (Sample16{32767, -32768}));
  EXPECT_EQ(in_16_bits({{1e9F, -1e9F}})[0], (Sample16{32767, -32768}));
}

// Rounding alone turns a sine of 1.04 steps into a staircase: its third harmonic stands 20 dB below it.
TEST(Quantizer16, AVeryQuietSineHasNoHarmonics) {
  const auto samples = in_16_bits(sine(997.0, -90.0));
  EXPECT_NEAR(level(samples, 997.0), -90.0, 0.2);
  for (const double harmonic : {2.0, 3.0, 5.0, 7.0, 9.0})
    EXPECT_LT(level(samples, 997.0 * harmonic), -130.0) << harmonic;  // the even noise in a quarter of a Hz
}

TEST(Quantizer16, ASineBelowHalfAStepIsHeardAtItsLevel) {
  EXPECT_NEAR(level(in_16_bits(sine(997.0, -100.0)), 997.0), -100.0, 0.5);
}

// Two steps of triangular noise and the rounding: a quarter of a step squared, -93 dBFS against full scale.
TEST(Quantizer16, TheNoiseIsThatOfTriangularDither) {
  const Sound sound = sine(997.0, -20.0);
  const auto samples = in_16_bits(sound);
  double power = 0.0;
  double mean = 0.0;
  for (std::size_t n = 0; n < sound.size(); ++n) {
    const double error = samples[n].left - double{sound[n].left} * 32768.0;
    power += error * error;
    mean += error;
    ASSERT_LT(std::abs(error), 1.51);
  }
  const auto count = static_cast<double>(sound.size());
  EXPECT_NEAR(power / count, 0.25, 0.01);
  EXPECT_NEAR(mean / count, 0.0, 0.01);
}

TEST(Quantizer16, TheNoiseDoesNotDependOnTheSizeOfTheBlocks) {
  const Sound sound = sine(997.0, -20.0);
  const auto whole = in_16_bits(sound);
  std::vector<Sample16> cut(sound.size());
  Quantizer16 quantizer;
  for (std::size_t at = 0, size = 1; at < sound.size(); at += size, size = size % 300 + 1) {
    size = std::min(size, sound.size() - at);
    quantizer.convert(std::span(sound).subspan(at, size), std::span(cut).subspan(at, size));
  }
  EXPECT_EQ(cut, whole);
}

TEST(Quantizer16, SilenceIsZeroAndExactSoundExactAgainAfterAMillisecond) {
  Sound sound = sine(997.0, -30.0);
  std::fill(sound.begin() + 1000, sound.begin() + 2000, StereoFrame{});
  for (std::size_t n = 2000; n < 3000; ++n) sound[n] = {static_cast<float>(n) / 32768.0F, -0.5F};
  const auto samples = in_16_bits(sound);
  for (std::size_t n = 1000 + kSampleRate / 1000 + 1; n < 2000; ++n) ASSERT_EQ(samples[n], Sample16{});
  for (std::size_t n = 2000; n < 3000; ++n) ASSERT_EQ(samples[n], (Sample16{static_cast<std::int16_t>(n), -16384}));
}

// A song of 16 bits at half the volume: every other value stands on a step.
Sound at_half_volume(double loudest, double seconds) {
  Sound sound(static_cast<std::size_t>(seconds * kSampleRate));
  for (std::size_t n = 0; n < sound.size(); ++n) {
    const double turn = 2.0 * std::numbers::pi * 997.0 * static_cast<double>(n) / kSampleRate;
    const auto steps = static_cast<float>(std::nearbyint(loudest * std::sin(turn)));
    sound[n].left = sound[n].right = steps / 65536.0F;
  }
  return sound;
}

// In steps squared, of the frames of which that is so.
template <class Which>
double noise_power(const Sound& sound, const std::vector<Sample16>& samples, Which which) {
  double power = 0.0;
  double count = 0.0;
  for (std::size_t n = 1000; n < sound.size(); ++n) {
    const double value = double{sound[n].left} * 32768.0;
    if (!which(value)) continue;
    power += std::pow(samples[n].left - value, 2);
    ++count;
  }
  return power / count;
}

bool is_step(double value) { return value == std::nearbyint(value); }

TEST(Quantizer16, TheNoiseDoesNotDependOnWhereTheSamplesStand) {
  const Sound sound = at_half_volume(3277.0, 4.0);
  const auto samples = in_16_bits(sound);
  EXPECT_NEAR(noise_power(sound, samples, is_step), 0.25, 0.01);
  EXPECT_NEAR(noise_power(sound, samples, [](double value) { return !is_step(value); }), 0.25, 0.01);
}

// Then a third of the frames and more are zero.
TEST(Quantizer16, AQuietFadeOutHasAnEvenNoise) {
  for (const double loudest : {1.0, 2.0, 3.0, 5.0}) {
    const Sound sound = at_half_volume(loudest, 4.0);
    const auto samples = in_16_bits(sound);
    EXPECT_NEAR(noise_power(sound, samples, [](double value) { return value == 0.0; }), 0.25, 0.01) << loudest;
    EXPECT_NEAR(noise_power(sound, samples, [](double value) { return value != 0.0; }), 0.25, 0.01) << loudest;
  }
}

TEST(Quantizer16, LeftAndRightHaveANoiseOfTheirOwn) {
  const auto samples = in_16_bits(sine(997.0, -60.0));
  const auto same = std::count_if(samples.begin(), samples.end(), [](Sample16 s) { return s.left == s.right; });
  EXPECT_LT(static_cast<double>(same) / static_cast<double>(samples.size()), 0.7);
}

}  // namespace
}  // namespace tandem

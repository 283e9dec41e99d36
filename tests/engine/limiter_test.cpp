#include "engine/render/limiter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

namespace tandem {
namespace {

using Sound = std::vector<StereoFrame>;

constexpr std::size_t kDelay = Limiter::kDelay;

float sine(double hz, std::size_t n) {
  return static_cast<float>(std::sin(2.0 * std::numbers::pi * hz * static_cast<double>(n) / kSampleRate));
}

float square(double hz, std::size_t n) { return sine(hz, n) >= 0.0F ? 1.0F : -1.0F; }

template <class Left>
Sound mono(std::size_t frames, Left left) {
  Sound sound(frames);
  for (std::size_t n = 0; n < frames; ++n) sound[n].left = sound[n].right = left(n);
  return sound;
}

// In steps of the chain.
Sound limited(Limiter& limiter, Sound sound) {
  for (std::size_t n = 0; n < sound.size(); n += kStepFrames) {
    limiter.process(std::span(sound).subspan(n, std::min<std::size_t>(kStepFrames, sound.size() - n)));
  }
  return sound;
}

float peak(const Sound& sound) {
  float result = 0.0F;
  for (const StereoFrame& f : sound) result = std::max({result, std::abs(f.left), std::abs(f.right)});
  return result;
}

// A single peak of 4 at kPeakAt in a quiet steady level; the gain that every frame got on its way.
constexpr std::size_t kPeakAt = 1000;

std::vector<float> gains_around_a_peak() {
  constexpr float kLevel = 0.125F;  // a power of two, so that the quotient is the gain itself
  Limiter limiter;
  const Sound out = limited(limiter, mono(40000, [](std::size_t n) { return n == kPeakAt ? 4.0F : kLevel; }));
  std::vector<float> gains;
  for (std::size_t n = kDelay; n < out.size(); ++n)
    gains.push_back(out[n].left / (n == kPeakAt + kDelay ? 4.0F : kLevel));
  return gains;
}

TEST(Limiter, PassesSoundWithinFullScaleBitForBit) {
  std::mt19937 random(1);
  std::uniform_real_distribution<float> level(-1.0F, 1.0F);
  Sound sound(20000);
  for (StereoFrame& frame : sound) frame = {level(random), level(random)};
  sound[500] = {1.0F, -1.0F};
  Limiter limiter;
  const Sound out = limited(limiter, sound);
  for (std::size_t n = kDelay; n < out.size(); ++n) ASSERT_EQ(out[n], sound[n - kDelay]) << n;
  for (std::size_t n = 0; n < kDelay; ++n) ASSERT_EQ(out[n], StereoFrame{});
}

TEST(Limiter, LooksAheadOneToTwoMilliseconds) {
  EXPECT_GE(Limiter::kDelay, kSampleRate / 1000);
  EXPECT_LE(Limiter::kDelay, 2 * kSampleRate / 1000);
}

TEST(Limiter, KeepsTwoFullScaleSquaresWithEveryBandUpWithinFullScale) {
  const float up = std::pow(10.0F, 12.0F / 20.0F);
  Limiter limiter;
  const Sound out = limited(
      limiter, mono(2 * kSampleRate, [&](std::size_t n) { return up * (square(97.0, n) + square(1013.0, n)); }));
  EXPECT_LE(peak(out), 1.0F);
  EXPECT_GT(peak(out), 0.99F);  // and wastes no level
}

TEST(Limiter, KeepsAnyNoiseWithinFullScale) {
  std::mt19937 random(2);
  std::normal_distribution<float> level(0.0F, 0.7F);
  Sound sound(10 * 44100);
  for (StereoFrame& frame : sound) frame = {level(random), level(random)};
  Limiter limiter;
  EXPECT_LE(peak(limited(limiter, sound)), 1.0F);
}

TEST(Limiter, ComesDownWithinTheLookAheadAndWithoutASteepStep) {
  const auto gains = gains_around_a_peak();
  for (std::size_t n = 0; n + kDelay <= kPeakAt; ++n) ASSERT_EQ(gains[n], 1.0F);
  EXPECT_LE(gains[kPeakAt], 0.25F);
  EXPECT_GT(gains[kPeakAt], 0.24F);
  // No cell of 16 frames takes more than two of the six parts of the way.
  for (std::size_t n = 1; n < gains.size(); ++n) ASSERT_LE(std::abs(gains[n] - gains[n - 1]), 0.75F / 48.0F + 1e-6F);
}

TEST(Limiter, ReturnsToExactlyFullGain) {
  const auto gains = gains_around_a_peak();
  const auto after = gains.begin() + kPeakAt;
  const auto half_way = std::find_if(after, gains.end(), [](float g) { return g > 0.625F; }) - after;
  // Half of the way takes ln 2 of the time constant, after the hold.
  EXPECT_GT(half_way, frames_of(30));
  EXPECT_LT(half_way, frames_of(80));
  EXPECT_TRUE(std::all_of(after + frames_of(300), gains.end(), [](float g) { return g == 1.0F; }));
}

TEST(Limiter, IsTransparentAgainAfterALoudPassage) {
  Limiter limiter;
  limited(limiter, mono(kSampleRate, [](std::size_t n) { return 8.0F * sine(50.0, n); }));
  limited(limiter, mono(kSampleRate, [](std::size_t n) { return sine(50.0, n); }));
  const Sound sound = mono(10000, [](std::size_t n) { return sine(441.0, n); });
  const Sound out = limited(limiter, sound);
  for (std::size_t n = kDelay; n < out.size(); ++n) ASSERT_EQ(out[n], sound[n - kDelay]) << n;
}

TEST(Limiter, DoesNotDistortASteadyTone) {
  // The gain holds between the crests of a tone, so that a loud sine comes out as a sine of full scale.
  Limiter limiter;
  const Sound out = limited(limiter, mono(2 * kSampleRate, [](std::size_t n) { return 2.0F * sine(100.0, n); }));
  double worst = 0.0;
  for (std::size_t n = kSampleRate; n < out.size(); ++n) {
    worst = std::max(worst, std::abs(static_cast<double>(out[n].left) - static_cast<double>(sine(100.0, n - kDelay))));
  }
  EXPECT_LT(worst, 1e-4);  // -80 dB
}

TEST(Limiter, GivesBothChannelsTheSameGain) {
  Sound sound(5000);
  for (std::size_t n = 0; n < sound.size(); ++n) sound[n] = {3.0F * sine(300.0, n), 0.5F * sine(300.0, n)};
  Limiter limiter;
  for (const StereoFrame& f : limited(limiter, sound)) ASSERT_NEAR(f.right * 6.0F, f.left, 1e-6F);
}

TEST(Limiter, GivesTheSameSoundForAnyLengthOfCall) {
  std::mt19937 random(3);
  std::normal_distribution<float> level(0.0F, 0.4F);
  Sound sound(20000);
  for (StereoFrame& frame : sound) frame = {level(random), level(random)};
  Limiter steps;
  Limiter odd;
  const Sound expected = limited(steps, sound);
  for (std::size_t n = 0; n < sound.size();) {
    const std::size_t count = std::min<std::size_t>(1 + random() % 512, sound.size() - n);
    odd.process(std::span(sound).subspan(n, count));
    n += count;
  }
  EXPECT_EQ(sound, expected);
}

TEST(Limiter, TurnsWhatIsNoNumberIntoSilence) {
  Sound sound = mono(3000, [](std::size_t n) { return 0.5F * sine(300.0, n); });
  sound[700].left = std::numeric_limits<float>::quiet_NaN();
  sound[900].right = std::numeric_limits<float>::infinity();
  Limiter limiter;
  const Sound out = limited(limiter, sound);
  EXPECT_EQ(out[700 + kDelay], StereoFrame{});
  EXPECT_EQ(out[900 + kDelay], StereoFrame{});
  EXPECT_EQ(out[701 + kDelay], sound[701]);
  EXPECT_LE(peak(out), 1.0F);
}

TEST(Limiter, ForgetsEverythingOnReset) {
  Limiter limiter;
  limited(limiter, mono(1000, [](std::size_t) { return 5.0F; }));
  limiter.reset();
  EXPECT_EQ(peak(limited(limiter, mono(100, [](std::size_t) { return 0.0F; }))), 0.0F);
  const Sound sound = mono(1000, [](std::size_t n) { return sine(441.0, n); });
  EXPECT_EQ(limited(limiter, sound)[500], sound[500 - kDelay]);
}

}  // namespace
}  // namespace tandem

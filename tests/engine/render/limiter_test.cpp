#include "engine/render/limiter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <numeric>
#include <random>
#include <vector>

#include "support/odd_pieces.h"
#include "support/residue.h"

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

constexpr float kLevel = 0.125F;  // a power of two, so that the quotient is the gain itself
constexpr std::size_t kPeakAt = 1000;

// A steady quiet level with `frames` frames of 4 from kPeakAt on, and the gain that every frame got on its way.
std::vector<float> gains_around(std::size_t frames) {
  const auto level = [frames](std::size_t n) { return n >= kPeakAt && n < kPeakAt + frames ? 4.0F : kLevel; };
  Limiter limiter;
  const Sound out = limited(limiter, mono(80000, level));
  std::vector<float> gains;
  for (std::size_t n = kDelay; n < out.size(); ++n) gains.push_back(out[n].left / level(n - kDelay));
  return gains;
}

double decibels(double power) { return 10.0 * std::log10(power); }

double residue_of_tones(const std::vector<double>& tones) {
  Limiter limiter;
  return test::residue_db(limited(limiter, mono(2 * kSampleRate + 1000,
                                                [&](std::size_t n) {
                                                  float sum = 0.0F;
                                                  for (const double hz : tones) sum += sine(hz, n);
                                                  return sum;
                                                })),
                          tones);
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

TEST(Limiter, ComesDownWithinTheLookAheadNeverFasterThan10DecibelsInAMillisecond) {
  const auto gains = gains_around(1);
  for (std::size_t n = 0; n + kDelay <= kPeakAt; ++n) ASSERT_EQ(gains[n], 1.0F);
  EXPECT_LE(gains[kPeakAt], 0.25F);
  EXPECT_GT(gains[kPeakAt], 0.24F);
  const float most = std::pow(10.0F, 10.0F / 20.0F / 44.1F);
  for (std::size_t n = 1; n < gains.size(); ++n) {
    ASSERT_LE(gains[n], gains[n - 1] * most) << n;
    ASSERT_GE(gains[n], gains[n - 1] / most) << n;
  }
}

TEST(Limiter, AStraySampleIsOverInLessThanTwoMilliseconds) {
  const auto gains = gains_around(1);
  EXPECT_TRUE(std::all_of(gains.begin() + kPeakAt + frames_of(2), gains.end(), [](float g) { return g == 1.0F; }));
}

TEST(Limiter, AStraySampleIsTurnedDownInItsOwnChannelOnly) {
  Sound sound(5000, {0.5F, 0.5F});
  sound[700].left = 1.4F;
  Limiter limiter;
  const Sound out = limited(limiter, sound);
  EXPECT_LT(out[699 + kDelay].left, 0.4F);
  for (std::size_t n = 0; n + kDelay < sound.size(); ++n) ASSERT_EQ(out[n + kDelay].right, 0.5F);
}

TEST(Limiter, AfterALastingOvershootTheGainIsHeldAndReturnsSlowly) {
  const std::size_t lasts = frames_of(100);
  const auto gains = gains_around(lasts);
  const auto after = gains.begin() + static_cast<std::ptrdiff_t>(kPeakAt + lasts);
  EXPECT_TRUE(std::all_of(after, after + frames_of(12), [](float g) { return g <= 0.2501F; }));
  const auto full = std::find_if(after, gains.end(), [](float g) { return g > 0.8F; }) - after;
  EXPECT_GT(full, frames_of(120));
  EXPECT_LT(full, frames_of(300));
  EXPECT_TRUE(std::all_of(after + frames_of(500), gains.end(), [](float g) { return g == 1.0F; }));
}

TEST(Limiter, TheLongerAnOvershootTheSlowerTheReturn) {
  const auto time_back = [](Frames milliseconds) {
    const auto lasts = static_cast<std::ptrdiff_t>(frames_of(milliseconds));
    const auto gains = gains_around(static_cast<std::size_t>(lasts));
    const auto after = gains.begin() + static_cast<std::ptrdiff_t>(kPeakAt) + lasts;
    return std::find_if(after, gains.end(), [](float g) { return g > 0.9F; }) - after;
  };
  EXPECT_LT(time_back(1), frames_of(2));
  EXPECT_GT(time_back(4), frames_of(10));
  EXPECT_GT(time_back(50), time_back(4));
}

// A master of -9 dBFS rms, as a lossy encoder gives it back: one sample in 3000 exceeds full scale, by up to 3.5 dB.
// Plain clipping is the least change that keeps a sound within full scale; ours has no corners.
TEST(Limiter, StraySamplesOfALossyDecoderCostAtMostThreeDecibelsMoreThanClipping) {
  std::mt19937 random(4);
  std::uniform_real_distribution<float> noise(-0.62F, 0.62F);
  std::uniform_real_distribution<float> excess(1.01F, 1.5F);
  Sound sound(20 * kSampleRate);
  for (StereoFrame& frame : sound) frame = {noise(random), noise(random)};
  for (std::size_t n = 0; n + 2 < sound.size(); n += 1000 + random() % 4000) {
    sound[n].left = excess(random);
    sound[n + 1].left = -excess(random);
  }
  Limiter limiter;
  const Sound out = limited(limiter, sound);
  double error = 0.0;
  double clipping = 0.0;
  std::size_t at_work = 0;
  for (std::size_t n = 0; n + kDelay < sound.size(); ++n) {
    const double in = double{sound[n].left};
    error += std::pow(double{out[n + kDelay].left} - in, 2);
    clipping += std::pow(std::clamp(in, -1.0, 1.0) - in, 2);
    at_work += std::abs(double{out[n + kDelay].left}) < 0.988 * std::abs(in) ? 1U : 0U;
  }
  EXPECT_LT(static_cast<double>(at_work) / static_cast<double>(sound.size()), 0.03);
  EXPECT_LT(decibels(error / clipping), 3.0);
}

// Two songs of full scale at once: the gain stands still between the crests.
TEST(Limiter, TonesAtOnceAreNotDistorted) {
  EXPECT_LT(residue_of_tones({1000.0, 1000.0}), -97.0);
  EXPECT_LT(residue_of_tones({50.0, 1000.0}), -95.0);
  EXPECT_LT(residue_of_tones({997.0, 1503.0}), -45.0);  // the beat of 506 Hz, whose crests differ, is followed
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

TEST(Limiter, LastingOvershootsLowerBothChannelsAlike) {
  Sound sound(30000);
  for (std::size_t n = 0; n < sound.size(); ++n) sound[n] = {3.0F * sine(300.0, n), 0.5F * sine(300.0, n)};
  Limiter limiter;
  const Sound out = limited(limiter, sound);
  for (std::size_t n = static_cast<std::size_t>(frames_of(50)); n < out.size(); ++n)
    ASSERT_NEAR(out[n].right * 6.0F, out[n].left, 2e-6F) << n;
}

TEST(Limiter, GivesTheSameSoundForAnyLengthOfCall) {
  std::mt19937 random(3);
  std::normal_distribution<float> level(0.0F, 0.4F);
  Sound sound(20000);
  for (StereoFrame& frame : sound) frame = {level(random), level(random)};
  Limiter steps;
  Limiter odd;
  const Sound expected = limited(steps, sound);
  test::process_in_odd_pieces(sound, [&odd](std::span<StereoFrame> piece) { odd.process(piece); });
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

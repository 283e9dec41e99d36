#include "displays/scope/oscilloscope.h"

#include <gtest/gtest.h>

#include <random>

#include "displays/enabled_display.h"
#include "displays/rest.h"

namespace tandem {
namespace {

constexpr double kFrame = 1.0 / 60.0;

// What is drawn at x px from the left edge.
double drawn(const ScopeReading& picture, const ScopeReading::Trace& trace, std::size_t x) {
  const double shift = picture.shift;
  return trace[x] * (1.0 - shift) + trace[x + 1] * shift;
}

Sound from(const std::function<double(double)>& tone) { return both(frames_in(2.0), tone); }

// The greatest difference between two of the pictures of a tone that has started a while ago.
double restlessness(const Sound& sound) {
  auto scope = enabled<Oscilloscope>();
  Screen screen(scope, sound);
  screen.run(0.2);
  const ScopeReading first = scope.picture();
  double greatest = 0.0;
  for (int i = 0; i < 60; ++i) {
    screen.picture(i % 3 == 0 ? 0.0137 : kFrame);
    for (std::size_t x = 0; x < kScopeWidth; ++x)
      greatest =
          std::max(greatest, std::abs(drawn(scope.picture(), scope.picture().left, x) - drawn(first, first.left, x)));
  }
  return greatest;
}

double wave(double hz, double t) { return std::sin(2.0 * std::numbers::pi * hz * t); }

TEST(Oscilloscope, SteadyTonesStandStill) {
  // A straight line between two samples of a sine is off by (pi f / 44100)^2 / 2 of its height at most, and where the
  // line meets zero by less; the picture is 1.41 high for 1. Two pixels of 91 are 0.044.
  for (const double hz : {45.0, 110.0, 261.63, 440.0, 997.0, 1760.0, 3000.0})
    EXPECT_LT(restlessness(from([=](double t) { return 0.7 * wave(hz, t); })), 0.044) << hz;
}

TEST(Oscilloscope, AToneWithOvertonesStandsStill) {
  EXPECT_LT(restlessness(from([](double t) {
              return 0.35 * wave(220.0, t) + 0.2 * wave(440.0, t + 0.0007) + 0.1 * wave(1100.0, t);
            })),
            0.044);
}

TEST(Oscilloscope, ANoisyToneStandsStill) {
  std::mt19937 random(2);
  std::uniform_real_distribution<double> noise(-0.02, 0.02);
  // The noise itself, 0.057 high in each of two pictures, and what it moves the crossing: 0.02 / (0.6 x 2 pi 200) s, a
  // slope of 1.41 x 0.6 x 2 pi 200 a second.
  EXPECT_LT(restlessness(from([&](double t) { return 0.6 * wave(200.0, t) + noise(random); })), 0.12);
}

TEST(Oscilloscope, StartsAtARisingZeroCrossing) {
  for (const double hz : {60.0, 440.0, 2500.0}) {
    auto scope = enabled<Oscilloscope>();
    const Sound tone = sine(frames_in(0.3), hz, 0.5, 1.0);
    Screen(scope, tone).run(0.3);
    const ScopeReading& picture = scope.picture();
    EXPECT_LT(picture.left[0], 0.0F);
    EXPECT_GE(picture.left[1], 0.0F);
    EXPECT_NEAR(drawn(picture, picture.left, 0), 0.0, 1e-5);
    for (std::size_t x = 0; x < kScopeWidth; ++x)
      EXPECT_NEAR(drawn(picture, picture.left, x),
                  0.5 * std::numbers::sqrt2 * wave(hz, static_cast<double>(x) / kHeardRate), 0.02);
  }
}

TEST(Oscilloscope, ThreeDecibelsFillTheHeight) {
  auto scope = enabled<Oscilloscope>();
  scope.feed(sine(2048, 441.0, 1.0 / std::numbers::sqrt2));
  scope.advance(kFrame);
  EXPECT_NEAR(*std::max_element(scope.picture().left.begin(), scope.picture().left.end()), 1.0, 0.001);
  scope.feed(sine(2048, 441.0));
  scope.advance(kFrame);
  EXPECT_EQ(*std::max_element(scope.picture().left.begin(), scope.picture().left.end()), 1.0F);
  EXPECT_EQ(*std::min_element(scope.picture().left.begin(), scope.picture().left.end()), -1.0F);
}

TEST(Oscilloscope, TheRightTraceGoesWithTheLeft) {
  auto scope = enabled<Oscilloscope>();
  Sound tone = sine(2048, 441.0, 0.5);
  const Sound right = sine(2048, 441.0, 0.5, std::numbers::pi / 2.0);
  for (std::size_t i = 0; i < tone.size(); ++i) tone[i].right = right[i].right;
  scope.feed(tone);
  scope.advance(kFrame);
  EXPECT_NEAR(drawn(scope.picture(), scope.picture().right, 0), 0.5 * std::numbers::sqrt2, 0.002);
}

TEST(Oscilloscope, ARightToneAloneStandsStillToo) {
  auto scope = enabled<Oscilloscope>();
  Sound tone = sine(frames_in(1.0), 441.0, 0.5);
  for (SoundFrame& frame : tone) frame.left = 0.0F;
  Screen screen(scope, tone);
  screen.run(0.5);
  EXPECT_LT(scope.picture().right[0], 0.0F);
  EXPECT_GE(scope.picture().right[1], 0.0F);
}

TEST(Oscilloscope, WithoutACrossingItShowsTheNewest) {
  auto scope = enabled<Oscilloscope>();
  Sound rising = both(2048, [](double t) { return 0.1 + t; });
  scope.feed(rising);
  scope.advance(kFrame);
  EXPECT_FLOAT_EQ(scope.picture().left.back(), rising.back().left * std::numbers::sqrt2_v<float>);
}

TEST(Oscilloscope, FallsToRestInSilenceAndWhenSoundIsHeldBack) {
  for (const bool held_back : {false, true}) {
    auto scope = enabled<Oscilloscope>();
    Sound tone = sine(frames_in(0.5), 441.0);
    if (!held_back) tone.resize(frames_in(2.0));
    expect_rest_after(scope, tone, 0.5, 0.75);
    EXPECT_EQ(scope.picture(), ScopeReading{});
  }
}

TEST(Oscilloscope, DisabledItDoesNothing) {
  Oscilloscope scope;
  scope.feed(sine(2048, 441.0));
  EXPECT_FALSE(scope.advance(kFrame));
  EXPECT_TRUE(scope.at_rest());
}

}  // namespace
}  // namespace tandem

#include "displays/spectrum/bar_decay.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace tandem {
namespace {

// The level after a fall from full height in pictures of `picture` seconds.
BarDecay decay_of(DecayKind kind, int speed, bool solid = false) {
  BarDecay decay;
  decay.prepare(1);
  decay.put(kind, speed, solid);
  return decay;
}

float after(BarDecay decay, double seconds, double picture = 1.0 / 60.0) {
  std::array level{1.0F};
  const std::array silence{0.0F};
  const auto pictures = static_cast<int>(std::lround(seconds / picture));
  for (int i = 0; i < pictures; ++i) decay.move(level, silence, seconds / pictures);
  return level[0];
}

TEST(BarDecay, UniformFallsTwelvePercentASecondPerStep) {
  for (int decay = 1; decay <= 16; ++decay)
    for (const double picture : {1.0 / 30.0, 1.0 / 60.0, 0.25}) {
      BarDecay fall = decay_of(DecayKind::Uniform, decay);
      EXPECT_NEAR(after(fall, 0.5, picture), std::max(0.0, 1.0 - 0.06 * decay), 0.001) << decay;
    }
  EXPECT_EQ(after(decay_of(DecayKind::Uniform, 8), 1.1), 0.0F);
}

TEST(BarDecay, ExponencFallsInProportionToTheHeight) {
  for (int decay = 1; decay <= 16; ++decay) {
    BarDecay fall = decay_of(DecayKind::Exponenc, decay);
    EXPECT_NEAR(after(fall, 0.5), std::exp(-0.06 * decay), 0.001);
    EXPECT_NEAR(after(fall, 1.0, 1.0 / 30.0), std::exp(-0.12 * decay), 0.001);
  }
  EXPECT_EQ(after(decay_of(DecayKind::Exponenc, 8), 8.0), 0.0F);
}

TEST(BarDecay, StepFallsAsFastButShowsWholeSpots) {
  BarDecay fall = decay_of(DecayKind::Step, 8);
  for (const double seconds : {0.1, 0.37, 0.5, 0.9}) {
    const float shown = fall.shown(after(fall, seconds), 28);
    EXPECT_NEAR(shown, 1.0 - 0.96 * seconds, 0.5 / 28 + 0.001);
    EXPECT_NEAR(shown * 28.0F, std::round(shown * 28.0F), 1e-4);
  }
  EXPECT_FLOAT_EQ(decay_of(DecayKind::Uniform, 8).shown(0.513F, 28), 0.513F);
}

TEST(BarDecay, StepLetsSolidBarsRestBeforeTheyFallEvenly) {
  const BarDecay fall = decay_of(DecayKind::Step, 8, true);
  for (const double picture : {1.0 / 30.0, 1.0 / 60.0, 0.004}) {
    BarDecay bar = fall;
    std::array level{0.5F};
    bar.move(level, std::array{1.0F}, picture);
    for (double passed = 0.0; passed < 0.4 - picture / 2; passed += picture) bar.move(level, std::array{0.0F}, picture);
    EXPECT_NEAR(level[0], 1.0 - 0.96 * 0.3, 0.96 * picture + 0.002) << picture;
    EXPECT_EQ(bar.shown(0.513F, 28), 0.513F);
  }
}

TEST(BarDecay, NoneFallsAtOnce) { EXPECT_EQ(after(decay_of(DecayKind::None, 1), 0.001, 0.001), 0.0F); }

TEST(BarDecay, RisesAtOnceAndStopsAtTheSound) {
  for (const DecayKind kind : {DecayKind::None, DecayKind::Step, DecayKind::Exponenc, DecayKind::Uniform}) {
    BarDecay fall = decay_of(kind, 8);
    std::array level{0.1F};
    fall.move(level, std::array{0.9F}, 0.001);
    EXPECT_EQ(level[0], 0.9F);
    fall.move(level, std::array{0.3F}, 60.0);
    EXPECT_EQ(level[0], 0.3F);
  }
}

}  // namespace
}  // namespace tandem

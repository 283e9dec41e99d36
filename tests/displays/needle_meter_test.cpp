#include "displays/meters/needle_meter.h"

#include <gtest/gtest.h>

#include <random>

#include "displays/enabled_display.h"
#include "displays/rest.h"

namespace tandem {
namespace {

constexpr double kFine = 0.001;  // seconds between two pictures, where a time is measured

NeedleMeter enabled_meter(std::size_t side = 0) { return enabled<NeedleMeter>(side); }

// Where the needle stands after a tone has been heard for two seconds.
double standing(double db) {
  NeedleMeter meter = enabled_meter();
  const Sound tone = sine(frames_in(2.0), 997.0, amplitude_of(db));
  Screen(meter, tone).run(2.0);
  return meter.deflection();
}

TEST(NeedleMeter, FullScaleSineStandsAtPlusThree) {
  EXPECT_NEAR(standing(0.0), 1.0, 0.002);
  EXPECT_NEAR(standing(0.0), needle_deflection(3.0), 0.002);
  EXPECT_NEAR(standing(-3.0), needle_deflection(0.0), 0.002);
  EXPECT_NEAR(standing(-13.0), needle_deflection(-10.0), 0.002);
  EXPECT_NEAR(standing(-23.0), needle_deflection(-20.0), 0.002);
}

// Rectified Gaussian noise averages 1.05 dB less than a sine of the same rms, which would stand at -18 + 3 + 3. A meter
// of peaks would stand at about -6.
TEST(NeedleMeter, NoiseStandsAtItsAverage) {
  std::mt19937 random(1);
  std::normal_distribution<double> gauss(0.0, amplitude_of(-18.0));
  const Sound noise = both(frames_in(5.0), [&](double) { return gauss(random); });
  NeedleMeter meter = enabled_meter();
  Screen screen(meter, noise);
  screen.run(1.0);
  double sum = 0.0;
  for (int i = 0; i < 240; ++i) {
    screen.picture(1.0 / 60.0);
    EXPECT_NEAR(needle_reading(meter.deflection()), -13.0, 1.5) << i;
    sum += meter.deflection() / 240.0;
  }
  EXPECT_NEAR(needle_reading(sum), -13.0, 0.2);
}

TEST(NeedleMeter, ScaleSpansTheSwing) {
  EXPECT_DOUBLE_EQ(deflection_angle(needle_deflection(3.0)), 43.0);
  EXPECT_DOUBLE_EQ(deflection_angle(0.0), -43.0);
  // -43 + 86 x 10^(dB / 20) / 1.41254; 0 stands at 71 % of the scale.
  for (const double db : {-20.0, -10.0, -7.0, -5.0, -3.0, -1.0, 0.0, 2.0})
    EXPECT_NEAR(deflection_angle(needle_deflection(db)), -43.0 + 86.0 * std::pow(10.0, db / 20.0) / 1.41254, 0.001);
  EXPECT_NEAR(needle_deflection(0.0), 0.71, 0.003);
}

TEST(NeedleMeter, MeetsTheBallisticsOfAVuMeter) {
  NeedleMeter meter = enabled_meter();
  const Sound tone = sine(frames_in(2.0), 997.0, amplitude_of(-3.0));
  Screen screen(meter, tone);
  // The level is known when the first 10 ms are over.
  screen.run(0.01, 1.0 / kFine);
  const double goal = needle_deflection(0.0);
  double reached = 0.0;
  double highest = 0.0;
  while (screen.now() < 2.0 - kFine) {
    screen.picture(kFine);
    if (reached == 0.0 && meter.deflection() >= 0.99 * goal) reached = screen.now() - 0.01;
    highest = std::max(highest, meter.deflection());
  }
  EXPECT_NEAR(reached, 0.300, 0.010);
  EXPECT_GE(highest / goal, 1.010);
  EXPECT_LE(highest / goal, 1.015);
}

TEST(NeedleBallistics, TakesTheSameWayInAnySteps) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> step(0.001, 0.05);
  NeedleBallistics whole;
  NeedleBallistics irregular;
  for (const double target : {1.0, 0.3, 0.8, 0.0, 0.5}) {
    whole.move(target, 0.2);
    double left = 0.2;
    while (left > 0.0) {
      const double now = std::min(left, step(random));
      irregular.move(target, now);
      left -= now;
    }
    EXPECT_NEAR(irregular.deflection(), whole.deflection(), 1e-9);
  }
}

// Bursts of a tone with the levels of music.
Sound bursts() {
  Sound sound;
  std::mt19937 random(3);
  std::uniform_real_distribution<double> level(-30.0, 0.0);
  for (int i = 0; i < 20; ++i) {
    const Sound burst = sine(frames_in(0.15), 500.0, amplitude_of(level(random)));
    sound.insert(sound.end(), burst.begin(), burst.end());
  }
  return sound;
}

// The needle at every tenth of a second.
template <class NextPicture>
std::vector<double> course(const Sound& sound, NextPicture next_picture) {
  NeedleMeter meter = enabled_meter();
  Screen screen(meter, sound);
  std::vector<double> stands;
  for (int tenth = 1; tenth <= 30; ++tenth) {
    while (screen.now() < 0.1 * tenth - 1e-9) screen.picture(std::min(next_picture(), 0.1 * tenth - screen.now()));
    stands.push_back(meter.deflection());
  }
  return stands;
}

TEST(NeedleMeter, MovesAlikeAtEveryFrameRate) {
  const Sound sound = bursts();
  std::mt19937 random(9);
  std::uniform_real_distribution<double> irregular(0.004, 0.034);
  const auto reference = course(sound, [] { return 0.01; });
  const auto at_60 = course(sound, [] { return 1.0 / 60.0; });
  const auto at_30 = course(sound, [] { return 1.0 / 30.0; });
  const auto at_any = course(sound, [&] { return irregular(random); });
  // A new level is seen at the next picture: up to 30 ms sooner or later, at the 4.3 a second that the needle moves at
  // most over the whole scale.
  for (std::size_t i = 0; i < reference.size(); ++i) {
    EXPECT_NEAR(at_60[i], reference[i], 0.05) << i;
    EXPECT_NEAR(at_30[i], reference[i], 0.10) << i;
    EXPECT_NEAR(at_any[i], reference[i], 0.10) << i;
  }
}

TEST(NeedleMeter, StandsStillOnASteadyToneAtEveryFrameRate) {
  for (const double rate : {24.0, 30.0, 60.0, 75.0, 144.0}) {
    NeedleMeter meter = enabled_meter();
    const Sound tone = sine(frames_in(4.0), 1000.0, 0.5);
    Screen screen(meter, tone);
    screen.run(3.0, rate);
    EXPECT_NEAR(meter.deflection(), 0.5, 0.001);
    for (int i = 0; i < 20; ++i) EXPECT_FALSE(screen.picture(1.0 / rate)) << rate;
  }
}

TEST(NeedleMeter, ShowsItsOwnSide) {
  Sound tone = sine(frames_in(1.0), 997.0);
  for (SoundFrame& frame : tone) frame.left = 0.0F;
  NeedleMeter left = enabled_meter(0);
  NeedleMeter right = enabled_meter(1);
  Screen(left, tone).run(1.0);
  Screen(right, tone).run(1.0);
  EXPECT_EQ(left.deflection(), 0.0);
  EXPECT_NEAR(right.deflection(), 1.0, 0.01);
}

TEST(NeedleMeter, FallsToRestInSilenceAndWhenSoundIsHeldBack) {
  for (const bool held_back : {false, true}) {
    NeedleMeter meter = enabled_meter();
    Sound tone = sine(frames_in(1.0), 997.0);
    if (!held_back) tone.resize(frames_in(4.0));
    expect_rest_after(meter, tone, 1.0, 3.0);
    EXPECT_EQ(meter.deflection(), 0.0);
  }
}

TEST(NeedleMeter, DoesNotFallBetweenTwoLotsOfSound) {
  NeedleMeter meter = enabled_meter();
  const Sound tone = sine(frames_in(1.0), 997.0);
  Screen(meter, tone).run(1.0);
  for (int i = 0; i < 4; ++i) meter.advance(0.012);
  EXPECT_NEAR(meter.deflection(), 1.0, 0.01);
}

TEST(NeedleMeter, DisabledItDoesNothing) {
  NeedleMeter meter(0);
  const Sound tone = sine(frames_in(1.0), 997.0);
  Screen(meter, tone).run(1.0);
  EXPECT_EQ(meter.deflection(), 0.0);
  EXPECT_TRUE(meter.at_rest());
}

}  // namespace
}  // namespace tandem

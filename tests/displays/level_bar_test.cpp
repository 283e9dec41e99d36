#include "displays/meters/level_bar.h"

#include <gtest/gtest.h>

#include "displays/enabled_display.h"
#include "displays/tones.h"

namespace tandem {
namespace {

TEST(LevelBar, LightsARowForEveryTwoDecibels) {
  for (double db = 0.0; db >= -50.0; db -= 0.5) {
    auto bar = enabled<LevelBar>();
    bar.feed(both(735, [=](double t) { return amplitude_of(db) * (t > 0.005 ? -1.0 : 0.0); }));
    bar.advance(1.0 / 60.0);
    const double rows = std::max(0.0, 22.0 + db / 2.0);
    EXPECT_NEAR(bar.lit()[0], rows, 0.5001) << db;
    EXPECT_EQ(bar.lit()[1], bar.lit()[0]);
  }
}

TEST(LevelBar, FullScaleSineLightsTheTopRow) {
  auto bar = enabled<LevelBar>();
  bar.feed(sine(735, 997.0, 32767.0 / 32768.0));
  EXPECT_TRUE(bar.advance(1.0 / 60.0));
  EXPECT_EQ(bar.lit()[0], LevelBar::kRows);
}

TEST(LevelBar, SidesAreTheirOwn) {
  auto bar = enabled<LevelBar>();
  Sound tone = sine(735, 997.0);
  for (SoundFrame& frame : tone) frame.right *= 0.1F;
  bar.feed(tone);
  bar.advance(1.0 / 60.0);
  EXPECT_EQ(bar.lit()[0], 22);
  EXPECT_EQ(bar.lit()[1], 12);
}

TEST(LevelBar, FallsToThePercentAtAnyRate) {
  for (const double rate : {30.0, 60.0, 144.0}) {
    auto bar = enabled<LevelBar>();
    const Sound tone = sine(frames_in(0.1), 997.0);
    Screen screen(bar, tone);
    screen.run(0.1, rate);
    EXPECT_EQ(bar.lit()[0], 22);
    Sound silence(frames_in(3.0));
    Screen fall(bar, silence);
    for (const double seconds : {0.2, 0.4, 0.6, 0.8}) {
      fall.run(seconds, rate);
      // The block that lies across the end of the tone counts up to one picture longer.
      EXPECT_NEAR(bar.lit()[0], 22.0 * (1.0 - 1.08 * seconds), 0.5 + 22.0 * 1.08 * (1.0 / rate + 0.01)) << seconds;
    }
    fall.run(1.1, rate);
    EXPECT_EQ(bar.lit()[0], 0);
    EXPECT_TRUE(bar.at_rest());
    EXPECT_FALSE(fall.picture(1.0 / rate));
  }
}

TEST(LevelBar, FallsAtOnceAndEightPercentASecond) {
  auto bar = enabled<LevelBar>();
  bar.feed(sine(882, 997.0));
  bar.advance(0.02);
  bar.feed(Sound(882));
  for (const double seconds : {0.25, 0.25, 0.25}) bar.advance(seconds);
  EXPECT_EQ(bar.lit()[0], 4) << "1 - 0.75 x 1.08 = 0.19 of 22 rows";
}

TEST(LevelBar, FallsWhenSoundIsHeldBackAndRestsWhenDisabled) {
  auto bar = enabled<LevelBar>();
  bar.feed(sine(735, 997.0));
  bar.advance(0.016);
  bar.advance(0.016);
  EXPECT_EQ(bar.lit()[0], 22);
  bar.advance(0.5);
  EXPECT_LT(bar.lit()[0], 12);
  EXPECT_FALSE(bar.at_rest());
  bar.put_Enabled(false);
  EXPECT_EQ(bar.lit()[0], 0);
  EXPECT_TRUE(bar.at_rest());
  bar.feed(sine(735, 997.0));
  EXPECT_FALSE(bar.advance(0.016));
}

}  // namespace
}  // namespace tandem

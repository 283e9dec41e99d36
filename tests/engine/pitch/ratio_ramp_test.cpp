#include "engine/pitch/ratio_ramp.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace tandem {
namespace {

RatioRamp begun(double ratio) {
  RatioRamp ramp;
  ramp.begin(ratio);
  return ramp;
}

// The next positions; `from` goes on to the one that follows.
std::vector<double> advance(RatioRamp& ramp, double& from, std::size_t count) {
  std::vector<double> positions(count);
  from = ramp.advance(from, positions);
  return positions;
}

double speed(const std::vector<double>& positions, std::size_t at) { return positions[at + 1] - positions[at]; }

TEST(RatioRamp, ReadsAtItsRatioFromTheFirstFrame) {
  RatioRamp ramp = begun(1.25);
  double from = 7.0;
  const auto positions = advance(ramp, from, 4);
  EXPECT_EQ(positions, (std::vector<double>{7.0, 8.25, 9.5, 10.75}));
  EXPECT_EQ(from, 12.0);
  EXPECT_TRUE(ramp.settled());
}

TEST(RatioRamp, ReachesAnotherRatioInAStraightLineOver512Frames) {
  RatioRamp ramp = begun(1.0);
  ramp.set_ratio(1.2);
  EXPECT_FALSE(ramp.settled());
  double from = 0.0;
  const auto positions = advance(ramp, from, 600);
  EXPECT_NEAR(speed(positions, 0), 1.0, 1e-9);
  EXPECT_NEAR(speed(positions, 256), 1.1, 1e-9);
  EXPECT_NEAR(speed(positions, 512), 1.2, 1e-9);
  EXPECT_TRUE(ramp.settled());
}

TEST(RatioRamp, ANewRatioInMidRampStartsFromTheSpeedOfThatMoment) {
  RatioRamp ramp = begun(1.0);
  ramp.set_ratio(1.2);
  double from = 0.0;
  advance(ramp, from, 256);
  ramp.set_ratio(0.9);
  EXPECT_NEAR(speed(advance(ramp, from, 2), 0), 1.1, 1e-3);
}

TEST(RatioRamp, TheTopRatioIsNotExceeded) {
  RatioRamp ramp = begun(0.8);
  ramp.set_ratio(1.25);
  double from = 0.0;
  const double top = ramp.top_ratio();
  const auto positions = advance(ramp, from, 700);
  for (std::size_t i = 0; i + 1 < positions.size(); ++i) ASSERT_LE(speed(positions, i), top + 1e-12);
}

TEST(RatioRamp, ResyncTakesTheLeadOffAtMostTwoPercentFromTheSongsSpeed) {
  for (const double lead : {300.4, -300.4, 3.0}) {
    RatioRamp ramp = begun(1.0);
    ramp.resync(lead);
    double from = 1000.0 + lead;
    double time = 1000.0;
    while (!ramp.in_unison()) {
      const double before = from;
      advance(ramp, from, 1);
      time += 1.0;
      ASSERT_LE(std::abs(from - before - 1.0), 0.0201) << lead;
      ASSERT_LT(time, 1000.0 + 44100.0);
    }
    EXPECT_NEAR(from, time, 1e-6) << lead;
    EXPECT_GE(time, 1000.0 + 512.0) << lead;
  }
}

TEST(RatioRamp, InUnisonEveryPositionIsAWholeFrame) {
  RatioRamp ramp = begun(1.0);
  ramp.resync(12.3456);
  double from = 1012.3456;
  advance(ramp, from, 5000);
  for (const double position : advance(ramp, from, 100)) ASSERT_EQ(position, std::round(position));
}

TEST(RatioRamp, WithoutALeadItIsInUnisonAtOnce) {
  RatioRamp ramp = begun(1.0);
  ramp.resync(0.0);
  EXPECT_TRUE(ramp.in_unison());
}

TEST(RatioRamp, ARatioTakesItOutOfUnison) {
  RatioRamp ramp = begun(1.0);
  ramp.resync(0.0);
  ramp.set_ratio(1.1);
  EXPECT_FALSE(ramp.in_unison());
  EXPECT_FALSE(ramp.resyncing());
}

}  // namespace
}  // namespace tandem

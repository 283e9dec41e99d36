#include "app/frame_pacer.h"

#include <gtest/gtest.h>

#include <vector>

namespace tandem::test {
namespace {

constexpr double kSixty = 1000.0 / 60;

// The frames of ten seconds which are asked for every `every` milliseconds.
std::vector<std::int64_t> frames(double period, std::int64_t every) {
  FramePacer pacer;
  std::vector<std::int64_t> times;
  for (std::int64_t now = 0; now < 10'000; now += every)
    if (pacer.take(now, period)) times.push_back(now);
  return times;
}

TEST(FramePacer, NeverMoreThanThePeriodAllows) {
  for (const std::int64_t every : {1, 3, 7, 10}) {
    EXPECT_LE(frames(kSixty, every).size(), 601U) << every;
    EXPECT_LE(frames(2 * kSixty, every).size(), 301U) << every;
  }
}

TEST(FramePacer, AsManyAsThePeriodAllowsIfItIsLookedOftenEnough) {
  EXPECT_GE(frames(kSixty, 1).size(), 599U);
  EXPECT_GE(frames(2 * kSixty, 1).size(), 299U);
}

TEST(FramePacer, LateFramesAreNotMadeUpFor) {
  FramePacer pacer;
  EXPECT_TRUE(pacer.take(0, kSixty));
  EXPECT_TRUE(pacer.take(500, kSixty));
  EXPECT_FALSE(pacer.take(501, kSixty));
  EXPECT_GE(pacer.next(), 508);
}

TEST(FramePacer, AShorterPeriodTakesEffectAtOnce) {
  FramePacer pacer;
  EXPECT_TRUE(pacer.take(0, 1000));
  EXPECT_FALSE(pacer.take(16, 1000));
  EXPECT_TRUE(pacer.take(17, kSixty));
}

}  // namespace
}  // namespace tandem::test

#include <gtest/gtest.h>

#include "app/latency_policy.h"

namespace tandem {
namespace {

constexpr QueueDepth::Milliseconds kStart = 100'000;  // the clock's, with the player just started

class QueueDepths : public testing::Test {
 protected:
  void SetUp() override { depth.move_hand(kStart); }
  bool near(QueueDepth::Milliseconds now) { return depth.deep(now, true, true, breaks); }
  bool away(QueueDepth::Milliseconds now) { return depth.deep(now, false, true, breaks); }

  QueueDepth depth;
  std::uint64_t breaks = 0;
};

TEST_F(QueueDepths, ShortWithAHandNearAndDeepThreeSecondsAfterIt) {
  EXPECT_FALSE(near(kStart));
  EXPECT_FALSE(away(kStart + 3000));
  EXPECT_TRUE(away(kStart + 3001));
}

TEST_F(QueueDepths, DeepAtOnceWhereNobodySees) {
  EXPECT_FALSE(near(kStart));
  EXPECT_TRUE(depth.deep(kStart + 1, false, false, 0));
}

TEST_F(QueueDepths, AHandThatRestsForAMinuteIsAwayUntilItMoves) {
  EXPECT_FALSE(near(kStart + QueueDepth::kIdle));
  EXPECT_TRUE(near(kStart + QueueDepth::kIdle + QueueDepth::kAlone + 1));
  const auto back = kStart + 2 * QueueDepth::kIdle;
  EXPECT_TRUE(depth.move_hand(back));
  EXPECT_FALSE(near(back));
  EXPECT_FALSE(depth.move_hand(back + 1)) << "it had not rested";
}

TEST_F(QueueDepths, AMachineTooBusyForTheShortOneGetsTheDeepOneForAMinute) {
  EXPECT_FALSE(near(kStart));
  ++breaks;
  EXPECT_TRUE(near(kStart + 10));
  depth.move_hand(kStart + 59'000);
  EXPECT_TRUE(near(kStart + 60'009));
  EXPECT_FALSE(near(kStart + 60'010));
}

TEST_F(QueueDepths, BreaksOfTheDeepOneSayNothingAboutTheShortOne) {
  near(kStart);
  EXPECT_TRUE(away(kStart + 5000));
  ++breaks;
  EXPECT_TRUE(away(kStart + 5010));
  depth.move_hand(kStart + 6000);
  EXPECT_FALSE(near(kStart + 6000));
}

TEST_F(QueueDepths, EachFurtherBreakDoublesTheCautionUpToSixteenMinutes) {
  auto now = kStart;
  for (const int minutes : {1, 2, 4, 8, 16, 16}) {
    depth.move_hand(now);
    ASSERT_FALSE(near(now));
    ++breaks;
    EXPECT_TRUE(near(now));
    now += minutes * 60'000;
    depth.move_hand(now - 1);
    EXPECT_TRUE(near(now - 1)) << minutes;
  }
}

TEST_F(QueueDepths, AfterAnHourABreakIsAFirstOneAgain) {
  auto now = kStart;
  for (int i = 0; i < 3; ++i) {
    depth.move_hand(now);
    near(now);
    ++breaks;
    near(now);
    now += QueueDepth::kForgotten + 1;
  }
  const auto last = now - QueueDepth::kForgotten - 1;
  depth.move_hand(last + QueueDepth::kCaution);
  EXPECT_FALSE(near(last + QueueDepth::kCaution));
}

}  // namespace
}  // namespace tandem

#include <gtest/gtest.h>

#include "app/latency_policy.h"

namespace tandem {
namespace {

constexpr LatencyPolicy::Milliseconds kStart = 100'000;  // the clock's, with the player just started

class LatencyPolicyTest : public testing::Test {
 protected:
  void SetUp() override { depth.note_input(kStart); }
  bool present(LatencyPolicy::Milliseconds now) { return depth.deep(now, true, true, underruns); }
  bool away(LatencyPolicy::Milliseconds now) { return depth.deep(now, false, true, underruns); }

  LatencyPolicy depth;
  std::uint64_t underruns = 0;
};

TEST_F(LatencyPolicyTest, ShortWithTheUserNearAndDeepThreeSecondsAfter) {
  EXPECT_FALSE(present(kStart));
  EXPECT_FALSE(away(kStart + 3000));
  EXPECT_TRUE(away(kStart + 3001));
}

TEST_F(LatencyPolicyTest, DeepAtOnceWhereTheWindowIsNotSeen) {
  EXPECT_FALSE(present(kStart));
  EXPECT_TRUE(depth.deep(kStart + LatencyPolicy::kAppears + 1, false, false, 0));
}

TEST_F(LatencyPolicyTest, StaysShortWhileTheWindowOfAStartIsStillToAppear) {
  for (const LatencyPolicy::Milliseconds since : {0, 20, 500, 1000})
    EXPECT_FALSE(depth.deep(kStart + since, false, false, 0)) << since << " ms after the start";
  EXPECT_TRUE(depth.deep(kStart + LatencyPolicy::kAppears + 1, false, false, 0));
}

TEST_F(LatencyPolicyTest, AUserWhoRestsForAMinuteIsAwayUntilTheNextMove) {
  EXPECT_FALSE(present(kStart + LatencyPolicy::kIdle));
  EXPECT_TRUE(present(kStart + LatencyPolicy::kIdle + LatencyPolicy::kUserGone + 1));
  const auto back = kStart + 2 * LatencyPolicy::kIdle;
  EXPECT_TRUE(depth.note_input(back));
  EXPECT_FALSE(present(back));
  EXPECT_FALSE(depth.note_input(back + 1)) << "it had not rested";
}

TEST_F(LatencyPolicyTest, AMachineTooBusyForTheShortOneGetsTheDeepOneForAMinute) {
  EXPECT_FALSE(present(kStart));
  ++underruns;
  EXPECT_TRUE(present(kStart + 10));
  depth.note_input(kStart + 59'000);
  EXPECT_TRUE(present(kStart + 60'009));
  EXPECT_FALSE(present(kStart + 60'010));
}

TEST_F(LatencyPolicyTest, BreaksOfTheDeepOneSayNothingAboutTheShortOne) {
  present(kStart);
  EXPECT_TRUE(away(kStart + 5000));
  ++underruns;
  EXPECT_TRUE(away(kStart + 5010));
  depth.note_input(kStart + 6000);
  EXPECT_FALSE(present(kStart + 6000));
}

TEST_F(LatencyPolicyTest, EachFurtherBreakDoublesTheCautionUpToSixteenMinutes) {
  auto now = kStart;
  for (const int minutes : {1, 2, 4, 8, 16, 16}) {
    depth.note_input(now);
    ASSERT_FALSE(present(now));
    ++underruns;
    EXPECT_TRUE(present(now));
    now += minutes * 60'000;
    depth.note_input(now - 1);
    EXPECT_TRUE(present(now - 1)) << minutes;
  }
}

TEST_F(LatencyPolicyTest, AfterAnHourABreakIsAFirstOneAgain) {
  auto now = kStart;
  for (int i = 0; i < 3; ++i) {
    depth.note_input(now);
    present(now);
    ++underruns;
    present(now);
    now += LatencyPolicy::kForgotten + 1;
  }
  const auto last = now - LatencyPolicy::kForgotten - 1;
  depth.note_input(last + LatencyPolicy::kCaution);
  EXPECT_FALSE(present(last + LatencyPolicy::kCaution));
}

}  // namespace
}  // namespace tandem

#include "platform/output/playhead.h"

#include <gtest/gtest.h>

namespace tandem {
namespace {

constexpr Nanoseconds kSecond = kNanosecondsPerSecond;

TEST(PlayheadTest, PlaysAtTheSampleRateAndStandsAtTheEnd) {
  Playhead playhead;
  playhead.add(44100, 5 * kSecond);
  EXPECT_EQ(playhead.played(5 * kSecond), 0U);
  EXPECT_EQ(playhead.played(5 * kSecond + kSecond / 2), 22050U);
  EXPECT_EQ(playhead.played(6 * kSecond), 44100U);
  EXPECT_EQ(playhead.played(9 * kSecond), 44100U);
}

TEST(PlayheadTest, BeginsAgainAfterItRanDry) {
  Playhead playhead;
  playhead.add(441, kSecond);
  playhead.add(441, 3 * kSecond);
  EXPECT_EQ(playhead.played(3 * kSecond), 441U);
  EXPECT_EQ(playhead.played(3 * kSecond + kSecond / 200), 441U + 220U);
  EXPECT_EQ(playhead.queued(4 * kSecond), 0U);
}

TEST(PlayheadTest, LosesNothingToRoundingInADay) {
  Playhead playhead;
  const Nanoseconds step = 7'654'321;
  std::uint64_t day = 24ULL * 3600 * 44100;
  playhead.add(2 * day, 0);
  Nanoseconds now = 0;
  for (int i = 0; i < 100000; ++i) playhead.played(now += step);
  EXPECT_EQ(playhead.played(24 * 3600 * kSecond), day);
}

TEST(PlayheadTest, SaysWhenTheQueueWillHaveFallen) {
  Playhead playhead;
  playhead.add(1000, kSecond);
  const Nanoseconds due = playhead.time_of_queue(400, kSecond);
  EXPECT_EQ(playhead.queued(due), 400U);
  EXPECT_EQ(playhead.queued(due - 1), 401U);
  EXPECT_EQ(playhead.time_of_queue(1000, kSecond), kSecond);
}

}  // namespace
}  // namespace tandem

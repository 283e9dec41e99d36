#include "platform/output/playback_clock.h"

#include <gtest/gtest.h>

#include <thread>

namespace tandem {
namespace {

TEST(PlaybackClockTest, RunsOnBetweenReportsUpToTheCeiling) {
  PlaybackClock clock;
  clock.publish({1000, kNanosecondsPerSecond, 6000});
  EXPECT_EQ(clock.frames_played(kNanosecondsPerSecond), 1000U);
  EXPECT_EQ(clock.frames_played(kNanosecondsPerSecond + kNanosecondsPerSecond / 10), 5410U);
  EXPECT_EQ(clock.frames_played(2 * kNanosecondsPerSecond), 6000U);
}

TEST(PlaybackClockTest, StandsStillWhereTheCeilingIsThePosition) {
  PlaybackClock clock;
  clock.publish({1000, kNanosecondsPerSecond, 1000});
  EXPECT_EQ(clock.frames_played(30 * kNanosecondsPerSecond), 1000U);
}

TEST(PlaybackClockTest, NeverGoesBack) {
  PlaybackClock clock;
  clock.publish({0, 0, 100000});
  EXPECT_EQ(clock.frames_played(kNanosecondsPerSecond), 44100U);
  clock.publish({40000, kNanosecondsPerSecond, 100000});
  EXPECT_EQ(clock.frames_played(kNanosecondsPerSecond), 44100U);
  EXPECT_EQ(clock.frames_played(2 * kNanosecondsPerSecond), 84100U);
}

// frames and ceiling are always published equal, so a mixed reading would show as a number never published.
TEST(PlaybackClockTest, AReaderNeverSeesHalfAReport) {
  PlaybackClock clock;
  std::thread writer([&] {
    for (std::uint64_t i = 0; i < 200000; ++i) clock.publish({i * 10, 0, i * 10});
  });
  std::uint64_t last = 0;
  int wrong = 0;
  while (last < 1999990) {
    const std::uint64_t heard = clock.frames_played(kNanosecondsPerSecond);
    if (heard % 10 != 0 || heard < last) ++wrong;
    last = heard;
  }
  writer.join();
  EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace tandem

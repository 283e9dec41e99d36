#include <gtest/gtest.h>

#include "engine/components/mix_timer.h"

namespace tandem {
namespace {

struct Clock : testing::Test {
  Clock() { clock.put_Interval(10); }
  // When the next tick comes, in ms.
  TimerQueue::Milliseconds next() const { return queue.next_due().value_or(-1); }

  TimerQueue queue;
  MixTimer clock{queue};
};

TEST_F(Clock, RestsAndTicksOnEveryTenMillisecondsAfterwards) {
  clock.skip_ticks_for(1000);
  queue.advance(999);
  EXPECT_EQ(clock.ticks(), 0U);
  queue.advance(1000);
  EXPECT_EQ(clock.ticks(), 1U);
  EXPECT_EQ(next(), 1010);
}

TEST_F(Clock, AShorterRestReplacesALongerOne) {
  clock.skip_ticks_for(1000);
  queue.advance(100);
  clock.skip_ticks_for(150);
  EXPECT_EQ(next(), 250);
}

TEST_F(Clock, ALongerRestReplacesAShorterOne) {
  clock.skip_ticks_for(150);
  queue.advance(100);
  clock.skip_ticks_for(1000);
  EXPECT_EQ(next(), 1100);
}

TEST_F(Clock, HastenedItTicksWithinOneInterval) {
  clock.skip_ticks_for(1000);
  queue.advance(100);
  clock.hasten();
  EXPECT_EQ(next(), 110);
}

TEST_F(Clock, StoppedItDoesNotRestAndDoesNotTick) {
  clock.put_Interval(0);
  clock.skip_ticks_for(50);
  EXPECT_EQ(queue.next_due(), std::nullopt);
  EXPECT_FALSE(clock.running());
}

TEST_F(Clock, TickedBetweenTwoTicksItCounts) {
  int heard = 0;
  clock.tick.connect([&heard] { ++heard; });
  clock.tick_now();
  EXPECT_EQ(clock.ticks(), 1U);
  EXPECT_EQ(heard, 1);
}

}  // namespace
}  // namespace tandem

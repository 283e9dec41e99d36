#include "engine/components/hi_timer.h"

#include <gtest/gtest.h>

namespace tandem {
namespace {

struct Ticking {
  TimerQueue queue;
  HiTimer timer;
  int ticks = 0;
  Ticking(int interval, bool enabled) : timer(queue, interval, enabled) {
    timer.tick.connect([this] { ++ticks; });
  }
  int ticks_in(int milliseconds) {
    ticks = 0;
    for (int i = 0; i < milliseconds; ++i) queue.advance(queue.now() + 1);
    return ticks;
  }
};

TEST(HiTimer, TicksWhileEnabledWithAnInterval) { EXPECT_EQ(Ticking(200, true).ticks_in(1000), 5); }

TEST(HiTimer, AnIntervalOfZeroStops) {
  Ticking t(0, true);
  EXPECT_EQ(t.ticks_in(100), 0);
  t.timer.put_Interval(10);
  EXPECT_EQ(t.ticks_in(100), 10);
  t.timer.put_Interval(0);
  EXPECT_EQ(t.ticks_in(100), 0);
}

TEST(HiTimer, DisabledItKeepsItsInterval) {
  Ticking t(50, false);
  EXPECT_EQ(t.ticks_in(100), 0);
  t.timer.put_Enabled(true);
  EXPECT_EQ(t.ticks_in(100), 2);
  t.timer.put_Enabled(false);
  EXPECT_EQ(t.timer.Interval(), 50);
}

TEST(HiTimer, OffAndOnBeginsANewInterval) {
  Ticking t(2500, true);
  EXPECT_EQ(t.ticks_in(2400), 0);
  t.timer.put_Enabled(false);
  t.timer.put_Enabled(true);
  EXPECT_EQ(t.ticks_in(2400), 0);
  EXPECT_EQ(t.ticks_in(100), 1);
}

}  // namespace
}  // namespace tandem

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
  void pass(int milliseconds) {
    for (int i = 0; i < milliseconds; ++i) queue.advance(queue.now() + 1);
  }
};

TEST(HiTimer, TicksWhileEnabledWithAnInterval) {
  Ticking t(200, true);
  t.pass(1000);
  EXPECT_EQ(t.ticks, 5);
}

TEST(HiTimer, AnIntervalOfZeroStops) {
  Ticking t(0, true);
  t.pass(100);
  EXPECT_EQ(t.ticks, 0);
  t.timer.put_Interval(10);
  t.pass(100);
  EXPECT_EQ(t.ticks, 10);
  t.timer.put_Interval(0);
  t.pass(100);
  EXPECT_EQ(t.ticks, 10);
}

TEST(HiTimer, DisabledItKeepsItsInterval) {
  Ticking t(50, false);
  t.pass(100);
  EXPECT_EQ(t.ticks, 0);
  t.timer.put_Enabled(true);
  t.pass(100);
  EXPECT_EQ(t.ticks, 2);
  t.timer.put_Enabled(false);
  EXPECT_EQ(t.timer.Interval(), 50);
}

TEST(HiTimer, OffAndOnBeginsANewInterval) {
  Ticking t(2500, true);
  t.pass(2400);
  t.timer.put_Enabled(false);
  t.timer.put_Enabled(true);
  t.pass(2400);
  EXPECT_EQ(t.ticks, 0);
  t.pass(100);
  EXPECT_EQ(t.ticks, 1);
}

}  // namespace
}  // namespace tandem

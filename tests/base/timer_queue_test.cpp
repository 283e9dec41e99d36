#include "base/timer_queue.h"

#include <gtest/gtest.h>

#include <string>

namespace tandem {
namespace {

struct Ticks {
  TimerQueue queue;
  std::string order;
  TimerQueue::Id add(char name) {
    return queue.add([this, name] { order += name; });
  }
  TimerQueue::Id started(char name, TimerQueue::Milliseconds interval) {
    const TimerQueue::Id timer = add(name);
    queue.start(timer, interval);
    return timer;
  }
};

TEST(TimerQueue, TicksOnceAnInterval) {
  Ticks t;
  t.started('a', 10);
  for (int now = 1; now <= 35; ++now) t.queue.advance(now);
  EXPECT_EQ(t.order, "aaa");
}

TEST(TimerQueue, DueTogetherTheyTickInTheOrderOfTheirMaking) {
  Ticks t;
  const auto a = t.add('a');
  const auto b = t.add('b');
  t.queue.start(b, 10);
  t.queue.start(a, 10);
  t.queue.advance(10);
  EXPECT_EQ(t.order, "ab");
}

TEST(TimerQueue, AStalledProgramDoesNotMakeUpForTicks) {
  Ticks t;
  t.started('a', 10);
  t.queue.advance(1000);
  EXPECT_EQ(t.order, "a");
  EXPECT_EQ(t.queue.next_due(), 1010);
}

TEST(TimerQueue, ALittleDelayDoesNotShiftTheRhythm) {
  Ticks t;
  t.started('a', 10);
  t.queue.advance(13);
  EXPECT_EQ(t.queue.next_due(), 20);
}

TEST(TimerQueue, AnIntervalOfZeroStops) {
  Ticks t;
  const auto a = t.add('a');
  t.queue.start(a, 10);
  t.queue.start(a, 0);
  EXPECT_FALSE(t.queue.running(a));
  t.queue.advance(100);
  EXPECT_EQ(t.order, "");
  EXPECT_FALSE(t.queue.next_due().has_value());
}

TEST(TimerQueue, StartingAgainBeginsANewInterval) {
  Ticks t;
  const auto a = t.add('a');
  t.queue.start(a, 10);
  t.queue.advance(9);
  t.queue.start(a, 10);
  t.queue.advance(18);
  EXPECT_EQ(t.order, "");
  t.queue.advance(19);
  EXPECT_EQ(t.order, "a");
}

TEST(TimerQueue, ATickMayStopItself) {
  TimerQueue queue;
  int ticks = 0;
  TimerQueue::Id timer = 0;
  timer = queue.add([&] {
    ++ticks;
    queue.stop(timer);
  });
  queue.start(timer, 10);
  queue.advance(10);
  queue.advance(50);
  EXPECT_EQ(ticks, 1);
}

TEST(TimerQueue, APostponedTimerSavesTheTicksUntilThen) {
  Ticks t;
  t.queue.postpone(t.started('a', 10), 35);
  EXPECT_EQ(t.queue.next_due(), 35);
  t.queue.advance(34);
  EXPECT_EQ(t.order, "");
  t.queue.advance(35);
  EXPECT_EQ(t.order, "a");
  EXPECT_EQ(t.queue.next_due(), 45);
}

TEST(TimerQueue, PostponingNeverBringsATickForward) {
  Ticks t;
  t.queue.postpone(t.started('a', 10), 3);
  EXPECT_EQ(t.queue.next_due(), 10);
}

TEST(TimerQueue, AHastenedTimerTicksWithinOneInterval) {
  Ticks t;
  const auto a = t.started('a', 10);
  t.queue.postpone(a, 500);
  t.queue.advance(100);
  t.queue.hasten(a);
  EXPECT_EQ(t.queue.next_due(), 110);
}

TEST(TimerQueue, APostponedTimerThatIsStoppedStaysStopped) {
  Ticks t;
  const auto a = t.started('a', 10);
  t.queue.stop(a);
  t.queue.postpone(a, 20);
  t.queue.hasten(a);
  EXPECT_EQ(t.queue.next_due(), std::nullopt);
}

TEST(TimerQueue, ATickMayAddTimers) {
  TimerQueue queue;
  int ticks = 0;
  const TimerQueue::Id first = queue.add([&] {
    for (int i = 0; i < 100; ++i) queue.start(queue.add([&ticks] { ++ticks; }), 10);
  });
  queue.start(first, 10);
  queue.advance(10);
  EXPECT_EQ(ticks, 0);
  queue.stop(first);
  queue.advance(20);
  EXPECT_EQ(ticks, 100);
}

TEST(TimerQueue, TheClockNeverGoesBack) {
  TimerQueue queue;
  queue.advance(50);
  queue.advance(20);
  EXPECT_EQ(queue.now(), 50);
}

}  // namespace
}  // namespace tandem

// The program's timers. The caller brings the clock: simulated time in tests and tools, a real clock in the player.
// UI thread only. Times are milliseconds on a clock that never goes back. Nothing here fails.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>

namespace tandem {

class TimerQueue {
 public:
  using Milliseconds = std::int64_t;
  using Id = std::size_t;

  // Timers that are due at the same advance() tick in the order in which they were added.
  Id add(std::function<void()> tick);
  // Periodic, the first tick one interval from now. An interval below 1 stops the timer.
  void start(Id timer, Milliseconds interval);
  void stop(Id timer);
  bool running(Id timer) const { return timers_[timer].interval > 0; }
  // The next tick of a running timer comes no earlier than `due`, once: for a caller that knows that the ticks until
  // then would do nothing. hasten() takes that back: the next tick comes at most one interval from now.
  void postpone(Id timer, Milliseconds due);
  void hasten(Id timer);

  // Sets the clock and ticks every timer that is due, each at most once however late it is: a stalled program does not
  // make up for ticks. A tick may add, start and stop timers, also its own; one that it adds is first looked at by the
  // next advance().
  void advance(Milliseconds now);
  Milliseconds now() const { return now_; }
  std::optional<Milliseconds> next_due() const;  // nothing if no timer runs

 private:
  struct Timer {
    std::function<void()> tick;
    Milliseconds interval = 0;
    Milliseconds due = 0;
  };
  void tick_if_due(Timer& timer);

  std::deque<Timer> timers_;  // a timer stays where it is while others are added
  Milliseconds now_ = 0;
};

}  // namespace tandem

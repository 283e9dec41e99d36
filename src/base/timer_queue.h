// The program's timers on one clock that is handed in: simulated time in tests and tools, a real clock in the player.
// UI thread only. Times are milliseconds on a clock that never goes back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

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
  // The next tick of a running timer comes no earlier than `due`, once: whoever knows that the ticks until then would
  // do nothing saves them. hasten() takes that back: the next tick comes at most one interval from now.
  void postpone(Id timer, Milliseconds due);
  void hasten(Id timer);

  // Sets the clock and ticks every timer that is due, each at most once however late it is: a stalled program does not
  // make up for ticks. A tick may start and stop timers, also its own.
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

  std::vector<Timer> timers_;
  Milliseconds now_ = 0;
};

}  // namespace tandem

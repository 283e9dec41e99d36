#include "base/timer_queue.h"

#include <algorithm>
#include <utility>

namespace tandem {

TimerQueue::Id TimerQueue::add(std::function<void()> tick) {
  timers_.push_back({std::move(tick)});
  return timers_.size() - 1;
}

void TimerQueue::start(Id timer, Milliseconds interval) {
  timers_[timer].interval = std::max<Milliseconds>(interval, 0);
  timers_[timer].due = now_ + interval;
}

void TimerQueue::stop(Id timer) { timers_[timer].interval = 0; }

void TimerQueue::postpone(Id timer, Milliseconds due) { timers_[timer].due = std::max(timers_[timer].due, due); }

void TimerQueue::hasten(Id timer) { timers_[timer].due = std::min(timers_[timer].due, now_ + timers_[timer].interval); }

void TimerQueue::tick_if_due(Timer& timer) {
  if (timer.interval == 0 || timer.due > now_) return;
  timer.due += timer.interval;
  if (timer.due <= now_) timer.due = now_ + timer.interval;
  timer.tick();
}

void TimerQueue::advance(Milliseconds now) {
  now_ = std::max(now_, now);
  const Id count = timers_.size();
  for (Id timer = 0; timer < count; ++timer) tick_if_due(timers_[timer]);
}

std::optional<TimerQueue::Milliseconds> TimerQueue::next_due() const {
  std::optional<Milliseconds> next;
  for (const Timer& timer : timers_)
    if (timer.interval > 0 && (!next || timer.due < *next)) next = timer.due;
  return next;
}

}  // namespace tandem

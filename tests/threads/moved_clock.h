// The render thread's clock, moved by the test: the thread sleeps until the test has brought the time to its moment.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <utility>

#include "engine/device/step_clock.h"

namespace tandem::test {

class MovedClock final : public StepClock {
 public:
  // `elsewhere`: the thread waits for something else than this clock.
  explicit MovedClock(std::function<bool()> elsewhere) : elsewhere_(std::move(elsewhere)) {}

  std::int64_t now_ns() noexcept override {
    const std::lock_guard lock(mutex_);
    return now_;
  }
  void sleep_until(std::int64_t ns) noexcept override {
    std::unique_lock lock(mutex_);
    until_ = ns;
    asleep_ = now_ < ns && !over_;
    changed_.notify_all();
    changed_.wait(lock, [&] { return now_ >= ns || over_; });
    asleep_ = false;
  }

  // The test's side. Moves on and waits until the thread sleeps again, if it slept for this. A thread that rests
  // because nothing is to be rendered does not come back to this clock: it is not waited for long.
  void advance(std::int64_t ns) {
    std::unique_lock lock(mutex_);
    wait_until_asleep(lock);
    now_ += ns;
    if (!asleep_ || now_ < until_) return;
    asleep_ = false;
    changed_.notify_all();
    wait_until_asleep(lock);
  }
  // No thread sleeps any more: they can end.
  void end() {
    const std::lock_guard lock(mutex_);
    over_ = true;
    changed_.notify_all();
  }

 private:
  void wait_until_asleep(std::unique_lock<std::mutex>& lock) {
    for (int i = 0; i < 20 && !asleep_ && !elsewhere_(); ++i) changed_.wait_for(lock, std::chrono::milliseconds(1));
  }

  std::function<bool()> elsewhere_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::int64_t now_ = 0;
  std::int64_t until_ = 0;
  bool asleep_ = false;
  bool over_ = false;
};

}  // namespace tandem::test

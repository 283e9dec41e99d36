// A counting semaphore whose waiting thread sleeps at once. The standard library's first yields its processor a dozen
// times, at every wait; for threads that wait 25 times a second that costs more than what they do.
// Any thread. It locks, but only for as long as it takes to count: nothing that is under render() may use it.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace tandem {

class Semaphore {
 public:
  void release() {
    {
      const std::lock_guard lock(mutex_);
      ++count_;
    }
    released_.notify_one();
  }

  bool try_acquire() {
    const std::lock_guard lock(mutex_);
    if (count_ == 0) return false;
    --count_;
    return true;
  }

  // False if it was not released within `most`.
  bool try_acquire_for(std::chrono::nanoseconds most) {
    std::unique_lock lock(mutex_);
    if (!released_.wait_for(lock, most, [this] { return count_ > 0; })) return false;
    --count_;
    return true;
  }

 private:
  std::mutex mutex_;
  std::condition_variable released_;
  int count_ = 0;
};

}  // namespace tandem

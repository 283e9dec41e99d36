// A counting semaphore whose waiting thread sleeps at once. The standard library's first yields its processor a dozen
// times, at every wait; for threads that wait 25 times a second that costs more than what they do.
// release() from any thread, real-time threads included: it never blocks.
#pragma once

#include <semaphore.h>

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <ctime>

namespace tandem {

class Semaphore {
 public:
  Semaphore() noexcept { sem_init(&semaphore_, 0, 0); }
  ~Semaphore() { sem_destroy(&semaphore_); }
  Semaphore(const Semaphore&) = delete;
  Semaphore& operator=(const Semaphore&) = delete;

  void release() noexcept { sem_post(&semaphore_); }

  // False if it was not released within `most`.
  bool try_acquire_for(std::chrono::nanoseconds most) noexcept {
    struct timespec until = {};
    clock_gettime(CLOCK_MONOTONIC, &until);
    constexpr std::int64_t kSecond = 1'000'000'000;
    const std::int64_t nanoseconds = until.tv_nsec + most.count();
    until.tv_sec += static_cast<std::time_t>(nanoseconds / kSecond);
    until.tv_nsec = static_cast<long>(nanoseconds % kSecond);
    while (sem_clockwait(&semaphore_, CLOCK_MONOTONIC, &until) != 0)
      if (errno != EINTR) return false;
    return true;
  }

 private:
  sem_t semaphore_{};
};

}  // namespace tandem

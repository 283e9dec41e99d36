// A counting semaphore: POSIX sem_t. release() never blocks and takes no lock, so a real-time thread may call it while
// an ordinary thread waits or releases: no priority inversion. A waiting thread sleeps at once, where the standard
// library's semaphore first yields its processor a dozen times at every wait.
// Any thread. try_acquire_for() is a system call: not for code under render().
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

  bool try_acquire() noexcept {
    while (sem_trywait(&semaphore_) != 0)
      if (errno != EINTR) return false;
    return true;
  }

  // False if it was not released within `most`.
  bool try_acquire_for(std::chrono::nanoseconds most) noexcept {
    const timespec deadline = deadline_after(most);
    while (sem_clockwait(&semaphore_, CLOCK_MONOTONIC, &deadline) != 0)
      if (errno != EINTR) return false;
    return true;
  }

 private:
  static timespec deadline_after(std::chrono::nanoseconds span) noexcept {
    constexpr std::int64_t kSecond = 1'000'000'000;
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    const std::int64_t nanoseconds = time.tv_nsec + span.count();
    time.tv_sec += static_cast<std::time_t>(nanoseconds / kSecond);
    time.tv_nsec = static_cast<long>(nanoseconds % kSecond);
    return time;
  }

  sem_t semaphore_{};
};

}  // namespace tandem

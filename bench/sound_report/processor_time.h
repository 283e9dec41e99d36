// The processor time that this thread has taken. Any thread.
#pragma once

#include <ctime>

namespace tandem::report {

inline double processor_milliseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

}  // namespace tandem::report

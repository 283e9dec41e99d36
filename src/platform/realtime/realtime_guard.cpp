#include "platform/realtime/realtime_guard.h"

#include <sys/resource.h>
#include <csignal>

#include <algorithm>
#include <atomic>
#include <cerrno>

#include "platform/realtime/realtime_threads.h"

namespace tandem {

namespace {

constexpr rlim_t kLongestRun = 100'000;  // microseconds

std::atomic<bool> guarded{false};

void on_run_too_long(int) {
  const int error = errno;
  demote_realtime_threads();
  errno = error;
}

bool handle_signal() noexcept {
  struct sigaction former {};
  if (sigaction(SIGXCPU, nullptr, &former) != 0) return false;
  if ((former.sa_flags & SA_SIGINFO) != 0) return false;
  if (former.sa_handler == &on_run_too_long) return true;
  if (former.sa_handler != SIG_DFL) return false;
  struct sigaction ours {};
  ours.sa_handler = &on_run_too_long;
  ours.sa_flags = SA_RESTART;
  return sigaction(SIGXCPU, &ours, nullptr) == 0;
}

// The signal must come well before the end; the kernel may have put it off for us once already.
bool set_limit(rlim_t most) noexcept {
  rlimit limit{};
  if (getrlimit(RLIMIT_RTTIME, &limit) != 0) return false;
  limit.rlim_max = std::min(limit.rlim_max, most);
  limit.rlim_cur = std::min(kLongestRun, limit.rlim_max / 2);
  return setrlimit(RLIMIT_RTTIME, &limit) == 0;
}

}  // namespace

void guard_realtime_threads() noexcept {
  if (!guarded.exchange(true)) guarded = handle_signal() && set_limit(RLIM_INFINITY);
}

bool limit_realtime_runs(std::uint64_t microseconds) noexcept {
  guard_realtime_threads();
  return guarded && set_limit(microseconds);
}

}  // namespace tandem

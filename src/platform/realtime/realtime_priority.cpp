#include "platform/realtime/realtime_priority.h"

#include <sched.h>
#include <unistd.h>
#include <csignal>

#include "platform/realtime/realtime_guard.h"
#include "platform/realtime/realtime_threads.h"

namespace tandem {

namespace {

// Some libraries block every signal on their threads; a thread that runs away should hear of it even if no other runs.
void hear_of_long_runs() noexcept {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGXCPU);
  pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
}

}  // namespace

bool ask_realtime_priority() noexcept {
  guard_realtime_threads();
  hear_of_long_runs();
  const sched_param requested{.sched_priority = kRealtimePriority};
  const bool granted = sched_setscheduler(0, SCHED_RR | SCHED_RESET_ON_FORK, &requested) == 0;
  remember_realtime_thread(gettid(), !granted);
  return granted;
}

}  // namespace tandem

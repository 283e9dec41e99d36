#include "platform/realtime/realtime_threads.h"

#include <sched.h>
#include <unistd.h>
#include <csignal>

#include <atomic>

namespace tandem {

namespace {

struct Seat {
  std::atomic<pid_t> thread{0};  // 0: free
  std::atomic<bool> refused{false};
};

std::array<Seat, kMostRealtimeThreads> seats;

// A number may since have gone to a thread of another program.
bool lives(pid_t thread) noexcept { return thread != 0 && tgkill(getpid(), thread, 0) == 0; }

}  // namespace

void remember_realtime_thread(pid_t thread, bool refused) noexcept {
  for (Seat& seat : seats) {
    pid_t former = seat.thread.load();
    if (former != thread && (lives(former) || !seat.thread.compare_exchange_strong(former, thread))) continue;
    seat.refused.store(refused);
    return;
  }
}

ThreadNumbers take_refused_threads() noexcept {
  ThreadNumbers refused;
  for (Seat& seat : seats) {
    const pid_t thread = seat.thread.load();
    if (seat.refused.exchange(false) && lives(thread)) refused.numbers[refused.count++] = thread;
  }
  return refused;
}

// Without the flag the kernel would refuse those who may not make real-time threads themselves.
void demote_realtime_threads() noexcept {
  const sched_param usual{.sched_priority = 0};
  for (const Seat& seat : seats) {
    const pid_t thread = seat.thread.load();
    if (lives(thread) && sched_getscheduler(thread) == (SCHED_RR | SCHED_RESET_ON_FORK))
      sched_setscheduler(thread, SCHED_OTHER | SCHED_RESET_ON_FORK, &usual);
  }
}

}  // namespace tandem

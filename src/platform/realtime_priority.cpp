#include "platform/realtime_priority.h"

#include <sched.h>

namespace tandem {

namespace {
constexpr int kPriority = 5;  // below a sound server's own threads
}

bool ask_realtime_priority() noexcept {
  const sched_param wished{.sched_priority = kPriority};
  return sched_setscheduler(0, SCHED_RR | SCHED_RESET_ON_FORK, &wished) == 0;
}

}  // namespace tandem

#include "platform/realtime/real_step_clock.h"

#include <ctime>
#include <utility>

#include "platform/realtime/monotonic_clock.h"
#include "platform/realtime/realtime_priority.h"

namespace tandem {

std::int64_t RealStepClock::now_ns() noexcept {
  if (!std::exchange(asked_priority_, true)) ask_realtime_priority();
  return monotonic_now();
}

void RealStepClock::sleep_until(std::int64_t ns) noexcept {
  constexpr std::int64_t kSecond = 1'000'000'000;
  const timespec until{ns / kSecond, ns % kSecond};
  clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr);
}

}  // namespace tandem

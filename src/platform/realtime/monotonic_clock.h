// The clock of the outputs: CLOCK_MONOTONIC in nanoseconds. Any thread, no lock, no allocation.
#pragma once

#include <chrono>
#include <cstdint>

namespace tandem {

using Nanoseconds = std::int64_t;

inline constexpr Nanoseconds kNanosecondsPerSecond = 1'000'000'000;
inline constexpr Nanoseconds kNanosecondsPerMillisecond = 1'000'000;

inline Nanoseconds monotonic_now() noexcept {
  const auto since = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::nanoseconds>(since).count();
}

}  // namespace tandem

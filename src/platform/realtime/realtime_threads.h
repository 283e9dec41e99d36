// The threads of this process that asked for real-time scheduling: few, remembered for as long as they live.
// Nothing here allocates or waits; any thread.
#pragma once

#include <sys/types.h>

#include <array>
#include <cstddef>

namespace tandem {

inline constexpr std::size_t kMostRealtimeThreads = 16;

struct ThreadNumbers {  // as gettid() gives them
  std::array<pid_t, kMostRealtimeThreads> numbers{};
  std::size_t count = 0;
};

// If kMostRealtimeThreads live threads are registered, this one is not.
void remember_realtime_thread(pid_t thread, bool refused) noexcept;

// Those that were refused, each reported once.
ThreadNumbers take_refused_threads() noexcept;

// Back to the usual scheduling with all of them, however they became real-time threads. Also in a signal handler.
void demote_realtime_threads() noexcept;

}  // namespace tandem

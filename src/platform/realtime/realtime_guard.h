// What keeps a real-time thread that runs away from taking the machine with it: after a tenth of a second without a
// wait the kernel sends SIGXCPU, and all threads that asked for real-time scheduling go back to default scheduling. The
// sound goes on as far as it can.
#pragma once

#include <cstdint>

namespace tandem {

// Before the first thread gets real-time scheduling; again is nothing. A handler that the program has itself is left
// alone, and then no limit is set. Any thread; nothing is allocated.
void guard_realtime_threads() noexcept;

// Lets the kernel end the program when a thread runs for so long without a wait, as rtkit demands before it grants
// anything; the guard comes in at half of it at the latest. It cannot be taken back. False if the guard is not in
// place.
bool limit_realtime_runs(std::uint64_t microseconds) noexcept;

}  // namespace tandem

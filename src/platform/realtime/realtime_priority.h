// Real-time scheduling for the threads that must not be late: the render thread and the output's.
#pragma once

namespace tandem {

inline constexpr int kRealtimePriority = 5;  // below a sound server's own threads

// Asks the kernel to schedule the calling thread in real time, at a low priority that child processes do not inherit.
// Granted to root and to users with an rtprio limit; for all others RtKit asks the system later, and what is refused
// there too keeps default scheduling; this is not reported. A thread that runs away loses it: realtime_guard.h.
// Returns what was granted. Any thread; a few system calls.
bool ask_realtime_priority() noexcept;

}  // namespace tandem

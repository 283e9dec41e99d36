// Real-time scheduling for the threads that must not be late: the render thread and the output's.
#pragma once

namespace tandem {

// Asks the kernel to schedule the calling thread in real time, at a low priority and not handed on to child processes.
// Granted to root and to users with an rtprio limit; everybody else keeps the usual scheduling, without a word.
// Returns what was granted. Any thread; one system call.
bool ask_realtime_priority() noexcept;

}  // namespace tandem

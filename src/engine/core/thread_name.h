// The name under which top, perf and a debugger show a thread.
#pragma once

#include <pthread.h>

namespace tandem {

// The calling thread, from now on; at most 15 characters, or the name is refused and the old one stays.
inline void name_this_thread(const char* name) noexcept { pthread_setname_np(pthread_self(), name); }

}  // namespace tandem

// What the thread sanitizer finds in libraries that it does not see into.

extern "C" const char* __tsan_default_suppressions();

// libpulse makes a mutex of its own at the first lock and passes it on by an atomic pointer.
extern "C" const char* __tsan_default_suppressions() { return "race:pa_mutex_lock\n"; }

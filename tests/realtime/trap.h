// Traps what the render thread must never do: while a thread is armed, each allocation, each mutex and each system call
// of it is counted and remembered. This test program interposes malloc and its kin and pthread_mutex_lock; system calls
// are trapped by the kernel's user dispatch.
#pragma once

#include <string>

namespace tandem::test {

// For RenderGuard::watcher: arms the calling thread while it is inside.
void trap_render(bool inside);

struct Trapped {
  long allocations = 0;
  long locks = 0;
  long system_calls = 0;
  long last_system_call = -1;
  long passages = 0;  // how often a thread was armed
  bool kernel_traps = true;
};
Trapped trapped();

// For the test of the trap itself.
void provoke_allocation();
void provoke_lock();
void provoke_system_call();

}  // namespace tandem::test

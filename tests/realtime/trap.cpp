#include "trap.h"

#include <dlfcn.h>
#include <pthread.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <mutex>

extern "C" void* __libc_malloc(std::size_t);
extern "C" void* __libc_calloc(std::size_t, std::size_t);
extern "C" void* __libc_realloc(void*, std::size_t);
extern "C" void* __libc_memalign(std::size_t, std::size_t);
extern "C" void __libc_free(void*);

namespace tandem::test {

namespace {

constexpr char kAllow = 0;
constexpr char kBlock = 1;

thread_local bool armed = false;
thread_local bool dispatching = false;
thread_local volatile char selector = kAllow;
std::atomic<long> allocations{0};
std::atomic<long> locks{0};
std::atomic<long> system_calls{0};
std::atomic<long> last_system_call{-1};
std::atomic<long> passages{0};
std::atomic<bool> kernel_traps{true};

void on_trap(int, siginfo_t* what, void*) {
  selector = kAllow;
  ++system_calls;
  last_system_call = what->si_syscall;
}

void begin_dispatch() {
  dispatching = true;
  struct sigaction action = {};
  action.sa_sigaction = on_trap;
  action.sa_flags = SA_SIGINFO;
  sigaction(SIGSYS, &action, nullptr);
  if (prctl(PR_SET_SYSCALL_USER_DISPATCH, PR_SYS_DISPATCH_ON, 0L, 0L, &selector) != 0) kernel_traps = false;
}

void note_allocation() {
  if (armed) ++allocations;
}

}  // namespace

void trap_render(bool inside) {
  if (inside && !dispatching) begin_dispatch();
  if (inside) ++passages;
  armed = inside;
  selector = inside ? kBlock : kAllow;
}

Trapped trapped() { return {allocations, locks, system_calls, last_system_call, passages, kernel_traps}; }

void provoke_allocation() {
  void* volatile block = std::malloc(16);
  std::free(block);
}

void provoke_lock() {
  static std::mutex mutex;
  const std::scoped_lock lock(mutex);
}

void provoke_system_call() { static_cast<void>(getppid()); }

}  // namespace tandem::test

extern "C" {

void* malloc(std::size_t size) {
  tandem::test::note_allocation();
  return __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) {
  tandem::test::note_allocation();
  return __libc_calloc(count, size);
}
void* realloc(void* block, std::size_t size) {
  tandem::test::note_allocation();
  return __libc_realloc(block, size);
}
void* memalign(std::size_t alignment, std::size_t size) {
  tandem::test::note_allocation();
  return __libc_memalign(alignment, size);
}
void* aligned_alloc(std::size_t alignment, std::size_t size) { return memalign(alignment, size); }
int posix_memalign(void** block, std::size_t alignment, std::size_t size) {
  *block = memalign(alignment, size);
  return *block == nullptr ? ENOMEM : 0;
}
void free(void* block) {
  if (block != nullptr) tandem::test::note_allocation();
  __libc_free(block);
}

int pthread_mutex_lock(pthread_mutex_t* mutex) {
  using Lock = int (*)(pthread_mutex_t*);
  static const Lock real = reinterpret_cast<Lock>(dlsym(RTLD_NEXT, "pthread_mutex_lock"));
  if (tandem::test::armed) ++tandem::test::locks;
  return real(mutex);
}
}

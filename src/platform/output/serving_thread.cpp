#include "platform/output/serving_thread.h"

#include <poll.h>

#include <algorithm>
#include <ctime>
#include <utility>

#include "engine/core/thread_name.h"
#include "platform/realtime/realtime_priority.h"

namespace tandem {

namespace {

void wait_until(Nanoseconds due, int wake_fd) {
  pollfd awaited = {wake_fd, POLLIN, 0};
  const Nanoseconds span = std::max<Nanoseconds>(due - monotonic_now(), 0);
  const timespec time = {span / kNanosecondsPerSecond, span % kNanosecondsPerSecond};
  static_cast<void>(ppoll(&awaited, 1, due == ServingThread::kNever ? nullptr : &time, nullptr));
}

}  // namespace

ServingThread::ServingThread(const char* name, int wake_fd, std::function<void()> wake, Round round)
    : wake_(std::move(wake)), round_(std::move(round)), thread_([this, name, wake_fd] { run(name, wake_fd); }) {}

ServingThread::~ServingThread() {
  ending_.store(true);
  wake_();
  thread_.join();
}

void ServingThread::run(const char* name, int wake_fd) {
  name_this_thread(name);
  ask_realtime_priority();
  while (!ending_.load()) wait_until(round_(monotonic_now()), wake_fd);
}

}  // namespace tandem

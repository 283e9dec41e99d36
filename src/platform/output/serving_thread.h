// The thread of an output that polls its device: real-time scheduling if granted; does rounds of work and sleeps until
// the next is due or a command arrives.
#pragma once

#include <atomic>
#include <functional>
#include <thread>

#include "platform/realtime/monotonic_clock.h"

namespace tandem {

class ServingThread {
 public:
  static constexpr Nanoseconds kNever = -1;  // nothing to do before the next command
  // Called on the thread with the time; returns the time of the next call, or kNever.
  using Round = std::function<Nanoseconds(Nanoseconds now)>;

  // Runs at once. Throws std::system_error if no thread can be made. `wake_fd`: readable when a round is due early; the
  // round resets it. `wake`: makes it readable.
  ServingThread(const char* name, int wake_fd, std::function<void()> wake, Round round);
  ~ServingThread();  // waits for the round under way
  ServingThread(const ServingThread&) = delete;
  ServingThread& operator=(const ServingThread&) = delete;

 private:
  void run(const char* name, int wake_fd);

  std::function<void()> wake_;
  Round round_;
  std::atomic<bool> ending_{false};
  std::thread thread_;
};

}  // namespace tandem

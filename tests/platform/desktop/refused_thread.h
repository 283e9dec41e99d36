// Threads that may not have real-time scheduling, under any user.
#pragma once

#include <sys/types.h>

#include <future>
#include <thread>

namespace tandem {

// Gives up the right to it, for the calling thread and those that it makes from now on. For good.
void drop_right_to_schedule();

class RefusedThread {  // lives until it is destroyed
 public:
  RefusedThread();
  ~RefusedThread();
  RefusedThread(const RefusedThread&) = delete;
  RefusedThread& operator=(const RefusedThread&) = delete;

  void ask();  // on the thread: ask_realtime_priority(); returns when it was refused
  pid_t number() const { return number_; }

 private:
  void run();

  std::promise<void> may_ask_;
  std::promise<void> has_asked_;
  std::promise<void> may_end_;
  std::promise<pid_t> number_promise_;
  bool asked_ = false;
  std::thread thread_;
  pid_t number_ = 0;
};

}  // namespace tandem

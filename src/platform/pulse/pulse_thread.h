// The loop that answers the sound server, and the thread that it runs in. start() and stop() are for the thread that
// made it; both throw or wait, so neither is for a real-time thread.
#pragma once

#include <pulse/thread-mainloop.h>

#include <stdexcept>

namespace tandem {

class PulseThread {
 public:
  PulseThread() : loop_(pa_threaded_mainloop_new()) {
    if (loop_ == nullptr) throw std::runtime_error("no main loop for the sound server");
    pa_threaded_mainloop_set_name(loop_, "tandem-pulse");
  }
  ~PulseThread() { pa_threaded_mainloop_free(loop_); }
  PulseThread(const PulseThread&) = delete;
  PulseThread& operator=(const PulseThread&) = delete;

  pa_mainloop_api* api() { return pa_threaded_mainloop_get_api(loop_); }
  void start() {
    if (pa_threaded_mainloop_start(loop_) < 0) throw std::runtime_error("no thread for the sound server");
  }
  void stop() { pa_threaded_mainloop_stop(loop_); }

 private:
  pa_threaded_mainloop* loop_;
};

}  // namespace tandem

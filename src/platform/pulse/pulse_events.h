// RAII owners of libpulse's callbacks: an operation, a one-shot timer, a deferred call, a readable descriptor.
// Constructed and destroyed on the main loop's thread, or while it does not run. libpulse aborts when out of memory, so
// nothing here can fail.
#pragma once

#include <pulse/mainloop-api.h>
#include <pulse/operation.h>

#include <functional>

namespace tandem {

// A pending request to the server. Its callback never runs once this is destroyed or holds another request.
class PulseOperation {
 public:
  PulseOperation() = default;
  ~PulseOperation() { cancel(); }
  PulseOperation(const PulseOperation&) = delete;
  PulseOperation& operator=(const PulseOperation&) = delete;

  void await(pa_operation* operation);
  void done();  // the answer has come
  void cancel();
  static void ignore(pa_operation* operation);  // one without an answer

 private:
  pa_operation* operation_ = nullptr;
};

class PulseTimer {
 public:
  PulseTimer(pa_mainloop_api* api, std::function<void()> due);
  ~PulseTimer();
  PulseTimer(const PulseTimer&) = delete;
  PulseTimer& operator=(const PulseTimer&) = delete;

  void start(int milliseconds);  // from now; an earlier start is forgotten
  void cancel();
  bool pending() const noexcept { return pending_; }

 private:
  static void on_time(pa_mainloop_api*, pa_time_event*, const struct timeval*, void* self);

  pa_mainloop_api* api_;
  std::function<void()> due_;
  pa_time_event* event_ = nullptr;
  bool pending_ = false;
};

// Calls back once, after the callback that asked for it has returned: there what that callback belongs to may die.
class PulseDefer {
 public:
  PulseDefer(pa_mainloop_api* api, std::function<void()> due);
  ~PulseDefer() { api_->defer_free(event_); }
  PulseDefer(const PulseDefer&) = delete;
  PulseDefer& operator=(const PulseDefer&) = delete;

  void ask() { api_->defer_enable(event_, 1); }

 private:
  static void on_defer(pa_mainloop_api*, pa_defer_event*, void* self);

  pa_mainloop_api* api_;
  std::function<void()> due_;
  pa_defer_event* event_;
};

class PulseReadable {
 public:
  PulseReadable(pa_mainloop_api* api, int fd, std::function<void()> due);
  ~PulseReadable() { api_->io_free(event_); }
  PulseReadable(const PulseReadable&) = delete;
  PulseReadable& operator=(const PulseReadable&) = delete;

 private:
  static void on_readable(pa_mainloop_api*, pa_io_event*, int, pa_io_event_flags_t, void* self);

  pa_mainloop_api* api_;
  std::function<void()> due_;
  pa_io_event* event_;
};

}  // namespace tandem

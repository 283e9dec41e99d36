#include "platform/pulse/pulse_events.h"

#include <pulse/timeval.h>
#include <sys/time.h>

#include <utility>

namespace tandem {

void PulseOperation::await(pa_operation* operation) {
  cancel();
  operation_ = operation;
}

void PulseOperation::done() { ignore(std::exchange(operation_, nullptr)); }

void PulseOperation::cancel() {
  if (operation_ != nullptr) pa_operation_cancel(operation_);
  done();
}

void PulseOperation::ignore(pa_operation* operation) {
  if (operation != nullptr) pa_operation_unref(operation);
}

PulseTimer::PulseTimer(pa_mainloop_api* api, std::function<void()> due) : api_(api), due_(std::move(due)) {}

PulseTimer::~PulseTimer() {
  if (event_ != nullptr) api_->time_free(event_);
}

void PulseTimer::start(int milliseconds) {
  struct timeval when = {};
  pa_timeval_add(pa_gettimeofday(&when), static_cast<pa_usec_t>(milliseconds) * PA_USEC_PER_MSEC);
  if (event_ == nullptr) {
    event_ = api_->time_new(api_, &when, &PulseTimer::on_time, this);
  } else {
    api_->time_restart(event_, &when);
  }
  pending_ = true;
}

void PulseTimer::cancel() {
  if (std::exchange(pending_, false)) api_->time_restart(event_, nullptr);
}

void PulseTimer::on_time(pa_mainloop_api*, pa_time_event*, const struct timeval*, void* self) {
  auto* timer = static_cast<PulseTimer*>(self);
  timer->cancel();
  timer->due_();
}

PulseDefer::PulseDefer(pa_mainloop_api* api, std::function<void()> due)
    : api_(api), due_(std::move(due)), event_(api->defer_new(api, &PulseDefer::on_defer, this)) {}

void PulseDefer::on_defer(pa_mainloop_api* api, pa_defer_event* event, void* self) {
  api->defer_enable(event, 0);
  static_cast<PulseDefer*>(self)->due_();
}

PulseReadable::PulseReadable(pa_mainloop_api* api, int fd, std::function<void()> due)
    : api_(api),
      due_(std::move(due)),
      event_(api->io_new(api, fd, PA_IO_EVENT_INPUT, &PulseReadable::on_readable, this)) {}

void PulseReadable::on_readable(pa_mainloop_api*, pa_io_event*, int, pa_io_event_flags_t, void* self) {
  static_cast<PulseReadable*>(self)->due_();
}

}  // namespace tandem

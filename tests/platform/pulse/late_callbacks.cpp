#include "platform/pulse/late_callbacks.h"

#include <dlfcn.h>
#include <pulse/stream.h>

#include <atomic>
#include <map>
#include <mutex>
#include <string>
#include <utility>

namespace tandem::test {

namespace {

std::atomic<int> late{0};
std::atomic<int> disconnected{0};

struct Registered {
  void (*callback)() = nullptr;  // as libpulse's caller gave it, its type taken off
  void* userdata = nullptr;
};

// Libpulse's thread registers and calls; the lock is for the streams of several outputs.
std::mutex mutex;
std::map<std::pair<pa_stream*, std::string>, Registered> registry;
std::map<pa_stream*, bool> dead;

template <class Function>
Function library(const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

Registered called(pa_stream* stream, const char* kind) {
  const std::lock_guard lock(mutex);
  if (dead[stream]) late.fetch_add(1);
  return registry[{stream, kind}];
}

template <class Callback>
void remember(pa_stream* stream, const char* kind, Callback callback, void* userdata) {
  const std::lock_guard lock(mutex);
  registry[{stream, kind}] = {reinterpret_cast<void (*)()>(callback), userdata};
}

template <class Callback>
Callback as(const Registered& found) {
  return reinterpret_cast<Callback>(found.callback);
}

void forget_former(pa_stream* stream) {  // the library may give a new stream the place of one that is gone
  const std::lock_guard lock(mutex);
  dead[stream] = false;
}

}  // namespace

int late_callbacks() noexcept { return late.load(); }
int disconnected_streams() noexcept { return disconnected.load(); }

}  // namespace tandem::test

using namespace tandem::test;  // NOLINT(google-build-using-namespace)

// Each setter passes a function of its own to the library, or none where none is wanted.
#define TANDEM_WATCH_NOTIFY(kind)                                                                                  \
  extern "C" void pa_stream_set_##kind##_callback(pa_stream* stream, pa_stream_notify_cb_t callback, void* data) { \
    remember(stream, #kind, callback, data);                                                                       \
    const pa_stream_notify_cb_t watch = [](pa_stream* from, void*) {                                               \
      const Registered found = called(from, #kind);                                                                \
      as<pa_stream_notify_cb_t>(found)(from, found.userdata);                                                      \
    };                                                                                                             \
    library<void (*)(pa_stream*, pa_stream_notify_cb_t, void*)>("pa_stream_set_" #kind "_callback")(               \
        stream, callback == nullptr ? nullptr : watch, nullptr);                                                   \
  }

TANDEM_WATCH_NOTIFY(latency_update)
TANDEM_WATCH_NOTIFY(underflow)
TANDEM_WATCH_NOTIFY(started)
TANDEM_WATCH_NOTIFY(suspended)
TANDEM_WATCH_NOTIFY(moved)
TANDEM_WATCH_NOTIFY(buffer_attr)

extern "C" void pa_stream_set_state_callback(pa_stream* stream, pa_stream_notify_cb_t callback, void* data) {
  if (callback != nullptr) forget_former(stream);
  library<void (*)(pa_stream*, pa_stream_notify_cb_t, void*)>("pa_stream_set_state_callback")(stream, callback, data);
}

extern "C" void pa_stream_set_write_callback(pa_stream* stream, pa_stream_request_cb_t callback, void* data) {
  remember(stream, "write", callback, data);
  const pa_stream_request_cb_t watch = [](pa_stream* from, std::size_t bytes, void*) {
    const Registered found = called(from, "write");
    as<pa_stream_request_cb_t>(found)(from, bytes, found.userdata);
  };
  library<void (*)(pa_stream*, pa_stream_request_cb_t, void*)>("pa_stream_set_write_callback")(
      stream, callback == nullptr ? nullptr : watch, nullptr);
}

extern "C" pa_operation* pa_stream_drain(pa_stream* stream, pa_stream_success_cb_t callback, void* data) {
  remember(stream, "drain", callback, data);
  const pa_stream_success_cb_t watch = [](pa_stream* from, int success, void*) {
    const Registered found = called(from, "drain");
    as<pa_stream_success_cb_t>(found)(from, success, found.userdata);
  };
  return library<pa_operation* (*)(pa_stream*, pa_stream_success_cb_t, void*)>("pa_stream_drain")(stream, watch,
                                                                                                  nullptr);
}

extern "C" pa_operation* pa_stream_set_buffer_attr(pa_stream* stream, const pa_buffer_attr* wanted,
                                                   pa_stream_success_cb_t callback, void* data) {
  remember(stream, "resize", callback, data);
  const pa_stream_success_cb_t watch = [](pa_stream* from, int success, void*) {
    const Registered found = called(from, "resize");
    as<pa_stream_success_cb_t>(found)(from, success, found.userdata);
  };
  return library<pa_operation* (*)(pa_stream*, const pa_buffer_attr*, pa_stream_success_cb_t, void*)>(
      "pa_stream_set_buffer_attr")(stream, wanted, watch, nullptr);
}

extern "C" int pa_stream_disconnect(pa_stream* stream) {
  {
    const std::lock_guard lock(mutex);
    dead[stream] = true;
  }
  disconnected.fetch_add(1);
  return library<int (*)(pa_stream*)>("pa_stream_disconnect")(stream);
}

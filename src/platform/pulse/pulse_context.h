// The connection to the sound server: reconnects by itself, never starts a server, honours PULSE_SERVER.
// On the main loop's thread.
#pragma once

#include <pulse/context.h>

#include <functional>

#include "platform/output/retry_delay.h"
#include "platform/pulse/pulse_events.h"

namespace tandem {

class PulseContext {
 public:
  // changed is called when the answers below have changed, out of callbacks of libpulse.
  PulseContext(pa_mainloop_api* api, std::function<void()> changed);
  ~PulseContext();
  PulseContext(const PulseContext&) = delete;
  PulseContext& operator=(const PulseContext&) = delete;

  // Starts looking, and lets go of a connection that broke. Not from a callback of the connection or its streams; the
  // streams of a broken connection must be gone before.
  void tend();

  pa_context* ready() const noexcept { return state_ == State::kReady ? context_ : nullptr; }  // null: no server now
  bool unreachable() const noexcept;  // no server for about a second

 private:
  enum class State { kIdle, kConnecting, kReady, kBroken };

  static void on_state(pa_context*, void* self);
  void connect();
  void drop();

  pa_mainloop_api* api_;
  std::function<void()> changed_;
  PulseTimer retry_;
  pa_context* context_ = nullptr;
  State state_ = State::kIdle;
  RetryDelay delay_;
};

}  // namespace tandem

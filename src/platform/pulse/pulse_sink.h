// The sample format of the sink that the stream plays to: asks the server for that of the default sink, then of the
// stream's own, and follows changes of either. On the main loop's thread.
#pragma once

#include <pulse/context.h>
#include <pulse/introspect.h>
#include <pulse/subscribe.h>

#include <cstdint>
#include <functional>
#include <optional>

#include "platform/output/device_format.h"
#include "platform/pulse/pulse_events.h"

namespace tandem {

class PulseSink {
 public:
  // changed is called when format() has changed, out of callbacks of libpulse.
  explicit PulseSink(std::function<void()> changed);
  ~PulseSink() { attach(nullptr); }
  PulseSink(const PulseSink&) = delete;
  PulseSink& operator=(const PulseSink&) = delete;

  // Asks this server; the same again is nothing. Null: no server any more.
  void attach(pa_context* context);
  // The stream plays to that sink: its format counts from now on.
  void follow(std::uint32_t index);
  // Empty while the server has not answered yet. 16 bits at 44100 Hz where there is no sink.
  const std::optional<DeviceFormat>& format() const noexcept { return format_; }

 private:
  void ask();
  void learn(const pa_sink_info* sink);

  static void on_sink(pa_context*, const pa_sink_info* sink, int end, void* self);
  static void on_event(pa_context*, pa_subscription_event_type_t event, std::uint32_t index, void* self);

  std::function<void()> changed_;
  pa_context* context_ = nullptr;
  PulseOperation question_;
  bool answered_ = false;                      // the question, with a sink
  std::uint32_t followed_ = PA_INVALID_INDEX;  // none: the default sink
  std::optional<DeviceFormat> format_;
};

}  // namespace tandem

#include "platform/pulse/pulse_sink.h"

#include <utility>

#include "platform/pulse/pulse_format.h"

namespace tandem {

namespace {

PulseSink& sink_of(void* self) { return *static_cast<PulseSink*>(self); }

}  // namespace

PulseSink::PulseSink(std::function<void()> changed) : changed_(std::move(changed)) {}

void PulseSink::attach(pa_context* context) {
  if (context == context_) return;
  question_.cancel();
  if (context_ != nullptr) pa_context_set_subscribe_callback(context_, nullptr, nullptr);
  context_ = context;
  followed_ = PA_INVALID_INDEX;
  format_.reset();
  if (context == nullptr) return;
  pa_context_set_subscribe_callback(context, &PulseSink::on_event, this);
  constexpr auto kEvents = static_cast<pa_subscription_mask_t>(PA_SUBSCRIPTION_MASK_SINK | PA_SUBSCRIPTION_MASK_SERVER);
  PulseOperation::ignore(pa_context_subscribe(context, kEvents, nullptr, nullptr));
  ask();
}

void PulseSink::follow(std::uint32_t index) {
  if (index == followed_) return;
  followed_ = index;
  ask();
}

void PulseSink::ask() {
  answered_ = false;
  question_.await(followed_ == PA_INVALID_INDEX
                      ? pa_context_get_sink_info_by_name(context_, "@DEFAULT_SINK@", &PulseSink::on_sink, this)
                      : pa_context_get_sink_info_by_index(context_, followed_, &PulseSink::on_sink, this));
}

void PulseSink::learn(const pa_sink_info* sink) {
  const DeviceFormat format = sink != nullptr ? format_for(sink->sample_spec) : DeviceFormat();
  if (format_ == format) return;
  format_ = format;
  changed_();
}

// Once for the sink and once for the end of the list, or only for the end, below 0, if there is none.
void PulseSink::on_sink(pa_context*, const pa_sink_info* sink, int end, void* self) {
  PulseSink& my = sink_of(self);
  if (end == 0) {
    my.answered_ = true;
    return my.learn(sink);
  }
  my.question_.done();
  if (!my.answered_ && !my.format_) my.learn(nullptr);
}

void PulseSink::on_event(pa_context*, pa_subscription_event_type_t event, std::uint32_t index, void* self) {
  PulseSink& my = sink_of(self);
  const auto about = static_cast<unsigned>(event);
  const bool is_sink = (about & PA_SUBSCRIPTION_EVENT_FACILITY_MASK) == PA_SUBSCRIPTION_EVENT_SINK;
  const bool is_removed = (about & PA_SUBSCRIPTION_EVENT_TYPE_MASK) == PA_SUBSCRIPTION_EVENT_REMOVE;
  const bool is_followed = is_sink && index == my.followed_;
  if (is_followed && is_removed) my.followed_ = PA_INVALID_INDEX;
  if (is_followed || my.followed_ == PA_INVALID_INDEX) my.ask();
}

}  // namespace tandem

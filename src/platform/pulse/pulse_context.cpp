#include "platform/pulse/pulse_context.h"

#include <pulse/proplist.h>

#include <utility>

namespace tandem {

namespace {

constexpr int kUnreachableAfter = 5;  // attempts: a server that is only being restarted is waited for

pa_context* new_context(pa_mainloop_api* api) {
  pa_proplist* properties = pa_proplist_new();
  pa_proplist_sets(properties, PA_PROP_APPLICATION_NAME, "Tandem");
  pa_proplist_sets(properties, PA_PROP_APPLICATION_ICON_NAME, "tandem");
  pa_proplist_sets(properties, PA_PROP_MEDIA_ROLE, "music");
  pa_context* context = pa_context_new_with_proplist(api, "Tandem", properties);
  pa_proplist_free(properties);
  return context;
}

}  // namespace

PulseContext::PulseContext(pa_mainloop_api* api, std::function<void()> changed)
    : api_(api), changed_(std::move(changed)), retry_(api, [this] { connect(); }) {}

PulseContext::~PulseContext() { drop(); }

bool PulseContext::unreachable() const noexcept { return delay_.failures() >= kUnreachableAfter; }

void PulseContext::tend() {
  if (state_ == State::kIdle && !retry_.pending()) connect();
  if (state_ != State::kBroken) return;
  drop();
  delay_.failed();
  retry_.start(static_cast<int>(delay_.delay() / kNanosecondsPerMillisecond));
}

void PulseContext::connect() {
  state_ = State::kConnecting;
  context_ = new_context(api_);
  if (context_ != nullptr) {
    pa_context_set_state_callback(context_, &PulseContext::on_state, this);
    if (pa_context_connect(context_, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) >= 0) return;
  }
  state_ = State::kBroken;
  changed_();
}

void PulseContext::drop() {
  state_ = State::kIdle;
  if (context_ == nullptr) return;
  pa_context_set_state_callback(context_, nullptr, nullptr);
  pa_context_disconnect(context_);
  pa_context_unref(context_);
  context_ = nullptr;
}

void PulseContext::on_state(pa_context* context, void* self) {
  auto* server = static_cast<PulseContext*>(self);
  const pa_context_state_t state = pa_context_get_state(context);
  if (state == PA_CONTEXT_READY) {
    server->state_ = State::kReady;
    server->delay_.succeeded();
  } else if (!PA_CONTEXT_IS_GOOD(state)) {
    server->state_ = State::kBroken;
  } else {
    return;
  }
  server->changed_();
}

}  // namespace tandem

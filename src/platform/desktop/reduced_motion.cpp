#include "platform/desktop/reduced_motion.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

#include "platform/desktop/portal_names.h"

namespace tandem {

namespace {

constexpr const char* kInterface = "org.freedesktop.portal.Settings";

// However many variants lie around it: the portal's older operation wraps its answer twice.
std::optional<int> number_in(sd_bus_message* message, char type) {
  char found = 0;
  const char* contents = nullptr;
  while (sd_bus_message_peek_type(message, &found, &contents) > 0 && found == 'v')
    if (sd_bus_message_enter_container(message, 'v', contents) <= 0) return std::nullopt;
  std::uint32_t number = 0;  // a truth value is as wide
  if (found != type || sd_bus_message_read_basic(message, type, &number) <= 0) return std::nullopt;
  return static_cast<int>(number);
}

const char* text_in(sd_bus_message* message) {
  const char* text = nullptr;
  return sd_bus_message_read_basic(message, 's', &text) > 0 ? text : "";
}

}  // namespace

ReducedMotionSetting::ReducedMotionSetting(std::function<void(bool reduced)> changed) : changed_(std::move(changed)) {
  if (connection_.bus() == nullptr) return;
  listen();
  for (Switch& one : switches_) read(one);
  connection_.attend();
}

// A portal that begins is asked again.
void ReducedMotionSetting::listen() {
  sd_bus_match_signal_async(connection_.bus(), nullptr, kPortalService, kPortalObject, kInterface, "SettingChanged",
                            &ReducedMotionSetting::on_changed, nullptr, this);
  sd_bus_add_match_async(connection_.bus(), nullptr, kPortalComesOrGoes, &ReducedMotionSetting::on_portal, nullptr,
                         this);
}

void ReducedMotionSetting::read(Switch& wanted) {
  sd_bus_message* call = nullptr;
  if (sd_bus_message_new_method_call(connection_.bus(), &call, kPortalService, kPortalObject, kInterface, "Read") < 0)
    return;
  sd_bus_message_set_auto_start(call, 0);
  sd_bus_message_append_basic(call, 's', wanted.group);
  sd_bus_message_append_basic(call, 's', wanted.key);
  sd_bus_call_async(connection_.bus(), nullptr, call, &ReducedMotionSetting::on_value, &wanted, 0);
  sd_bus_message_unref(call);
}

void ReducedMotionSetting::hear(Switch& about, sd_bus_message* value) {
  if (const std::optional<int> number = number_in(value, about.type)) about.reduces = *number == about.reducing_value;
  const bool reduced = std::any_of(switches_.begin(), switches_.end(), [](const Switch& one) { return one.reduces; });
  if (std::exchange(reduced_, reduced) != reduced) changed_(reduced);
}

ReducedMotionSetting::Switch* ReducedMotionSetting::find(std::string_view group, std::string_view key) {
  const auto found = std::find_if(switches_.begin(), switches_.end(),
                                  [&](const Switch& one) { return one.group == group && one.key == key; });
  return found == switches_.end() ? nullptr : &*found;
}

int ReducedMotionSetting::on_value(sd_bus_message* answer, void* about, sd_bus_error*) {
  auto& wanted = *static_cast<Switch*>(about);
  if (sd_bus_message_is_method_error(answer, nullptr) == 0) wanted.motion->hear(wanted, answer);
  return 0;
}

int ReducedMotionSetting::on_changed(sd_bus_message* signal, void* self, sd_bus_error*) {
  auto& motion = *static_cast<ReducedMotionSetting*>(self);
  const std::string_view group = text_in(signal);
  const std::string_view key = text_in(signal);
  if (Switch* about = motion.find(group, key)) motion.hear(*about, signal);
  return 0;
}

int ReducedMotionSetting::on_portal(sd_bus_message*, void* self, sd_bus_error*) {
  auto& motion = *static_cast<ReducedMotionSetting*>(self);
  for (Switch& one : motion.switches_) motion.read(one);
  return 0;
}

}  // namespace tandem

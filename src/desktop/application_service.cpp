#include "desktop/application_service.h"

#include <cerrno>
#include <string_view>
#include <utility>

#include "desktop/bus_texts.h"
#include "desktop/names.h"

namespace tandem {

namespace {

// The leave to come to the front, by its newer name or the older one; empty if there is none.
std::string activation_token(sd_bus_message* call) {
  std::string token;
  if (sd_bus_message_enter_container(call, 'a', "{sv}") <= 0) return token;
  while (sd_bus_message_enter_container(call, 'e', "sv") > 0) {
    const char* name = nullptr;
    const char* value = nullptr;
    sd_bus_message_read_basic(call, 's', &name);
    const std::string_view key = name == nullptr ? "" : name;
    const bool meant = key == "activation-token" || (key == "desktop-startup-id" && token.empty());
    if (meant && sd_bus_message_read(call, "v", "s", &value) > 0) {
      token = value;
    } else {
      sd_bus_message_skip(call, "v");
    }
    sd_bus_message_exit_container(call);
  }
  sd_bus_message_exit_container(call);
  return token;
}

}  // namespace

const sd_bus_vtable ApplicationService::kTable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD_WITH_ARGS("Activate", SD_BUS_ARGS("a{sv}", platform_data), SD_BUS_NO_RESULT,
                            &ApplicationService::on_activate, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_ARGS("Open", SD_BUS_ARGS("as", uris, "a{sv}", platform_data), SD_BUS_NO_RESULT,
                            &ApplicationService::on_open, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_ARGS("ActivateAction", SD_BUS_ARGS("s", action_name, "av", parameter, "a{sv}", platform_data),
                            SD_BUS_NO_RESULT, &ApplicationService::on_action, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END};

ApplicationService::ApplicationService(sd_bus* bus, Hooks hooks) : hooks_(std::move(hooks)) {
  sd_bus_add_object_vtable(bus, nullptr, kApplicationObject, "org.freedesktop.Application", kTable, this);
  sd_bus_request_name_async(
      bus, nullptr, kApplicationName, SD_BUS_NAME_QUEUE, [](sd_bus_message*, void*, sd_bus_error*) { return 0; },
      nullptr);
}

int ApplicationService::activate(sd_bus_message* call) {
  hooks_.activate(activation_token(call));
  return sd_bus_reply_method_return(call, nullptr);
}

// What is no file of this machine is passed over.
int ApplicationService::open(sd_bus_message* call) {
  std::vector<std::string> paths;
  if (sd_bus_message_enter_container(call, 'a', "s") <= 0) return -EINVAL;
  const char* url = nullptr;
  while (sd_bus_message_read_basic(call, 's', &url) > 0)
    if (auto path = path_of(url)) paths.push_back(std::move(*path));
  sd_bus_message_exit_container(call);
  hooks_.activate(activation_token(call));
  if (!paths.empty()) hooks_.open(paths);
  return sd_bus_reply_method_return(call, nullptr);
}

int ApplicationService::on_activate(sd_bus_message* call, void* self, sd_bus_error*) {
  return static_cast<ApplicationService*>(self)->activate(call);
}

int ApplicationService::on_open(sd_bus_message* call, void* self, sd_bus_error*) {
  return static_cast<ApplicationService*>(self)->open(call);
}

// The desktop entry names no actions.
int ApplicationService::on_action(sd_bus_message*, void*, sd_bus_error* error) {
  return sd_bus_error_set(error, "org.freedesktop.DBus.Error.InvalidArgs", "No such action");
}

}  // namespace tandem

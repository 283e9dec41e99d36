#include "app/assistive_bus.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace tandem::test {

namespace {

constexpr const char* kAccessible = "org.a11y.atspi.Accessible";
constexpr const char* kAction = "org.a11y.atspi.Action";
constexpr const char* kValue = "org.a11y.atspi.Value";
constexpr unsigned kFocusable = 11;  // bits of the state
constexpr unsigned kShowing = 25;

struct UnrefMessage {
  void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using Message = std::unique_ptr<sd_bus_message, UnrefMessage>;

Message ask(sd_bus* bus, const std::string& owner, const std::string& path, const char* interface, const char* method) {
  sd_bus_message* reply = nullptr;
  sd_bus_call_method(bus, owner.c_str(), path.c_str(), interface, method, nullptr, &reply, "");
  return Message(reply);
}

std::string string_in(const Message& message) {
  const char* text = nullptr;
  return message && sd_bus_message_read(message.get(), "s", &text) > 0 ? text : "";
}

sd_bus* connect(const std::string& address) {
  sd_bus* bus = nullptr;
  sd_bus_new(&bus);
  sd_bus_set_address(bus, address.c_str());
  sd_bus_set_bus_client(bus, 1);
  if (sd_bus_start(bus) < 0) throw std::runtime_error("no bus at " + address);
  return bus;
}

std::string first_line(const std::string& file) {
  std::ifstream text(file);
  std::string line;
  std::getline(text, line);
  return text.eof() ? "" : line;  // not yet whole
}

}  // namespace

bool AssistiveBus::installed() {
  return std::filesystem::exists("/usr/bin/dbus-daemon") &&
         std::filesystem::exists("/usr/share/dbus-1/services/org.a11y.Bus.service");
}

AssistiveBus::AssistiveBus()
    : daemon_({"dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address"}, files_.file("address")) {
  if (!wait_until([this] { return !first_line(files_.file("address")).empty(); }))
    throw std::runtime_error("no session bus");
  const std::string session = first_line(files_.file("address"));
  ::setenv("DBUS_SESSION_BUS_ADDRESS", session.c_str(), 1);
  ::setenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1", 1);
  const std::unique_ptr<sd_bus, Unref> bus(connect(session));
  bus_.reset(connect(string_in(ask(bus.get(), "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress"))));
}

AssistiveBus::~AssistiveBus() {
  ::setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
  ::unsetenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON");
}

std::vector<AssistiveBus::Place> AssistiveBus::children(const Place& place) const {
  const Message reply = ask(bus_.get(), place.owner, place.path, kAccessible, "GetChildren");
  std::vector<Place> all;
  if (!reply || sd_bus_message_enter_container(reply.get(), 'a', "(so)") <= 0) return all;
  const char* owner = nullptr;
  const char* path = nullptr;
  while (sd_bus_message_read(reply.get(), "(so)", &owner, &path) > 0) all.push_back({owner, path});
  return all;
}

std::string AssistiveBus::text(const Place& place, const char* method, const char* interface) const {
  return string_in(ask(bus_.get(), place.owner, place.path, interface, method));
}

std::string AssistiveBus::property(const Place& place, const char* name) const {
  char* value = nullptr;
  if (sd_bus_get_property_string(bus_.get(), place.owner.c_str(), place.path.c_str(), kAccessible, name, nullptr,
                                 &value) < 0)
    return "";
  const std::unique_ptr<char, decltype(&std::free)> kept(value, &std::free);
  return value;
}

AssistiveObject AssistiveBus::look_at(const Place& place) const {
  AssistiveObject object{place.path, name(place), text(place, "GetRoleName", kAccessible), {}, {}, 0, 0, false, false};
  const Message actions = ask(bus_.get(), place.owner, place.path, kAction, "GetActions");
  if (actions && sd_bus_message_enter_container(actions.get(), 'a', "(sss)") > 0) {
    const char* words[3] = {};
    while (sd_bus_message_read(actions.get(), "(sss)", &words[0], &words[1], &words[2]) > 0)
      object.actions.emplace_back(words[0]);
  }
  double value = 0;
  if (sd_bus_get_property_trivial(bus_.get(), place.owner.c_str(), place.path.c_str(), kValue, "CurrentValue", nullptr,
                                  'd', &value) >= 0)
    object.value = value;
  sd_bus_message* box = nullptr;
  sd_bus_call_method(bus_.get(), place.owner.c_str(), place.path.c_str(), "org.a11y.atspi.Component", "GetExtents",
                     nullptr, &box, "u", 0U);
  const Message extents(box);
  std::int32_t x = 0;
  std::int32_t y = 0;
  std::int32_t w = 0;
  std::int32_t h = 0;
  if (extents && sd_bus_message_read(box, "(iiii)", &x, &y, &w, &h) > 0) {
    object.x = x + w / 2;
    object.y = y + h / 2;
  }
  const Message state = ask(bus_.get(), place.owner, place.path, kAccessible, "GetState");
  std::uint32_t low = 0;
  std::uint32_t high = 0;
  if (state && sd_bus_message_read(state.get(), "au", 2, &low, &high) > 0) {
    object.showing = (low >> kShowing & 1U) != 0;
    object.focusable = (low >> kFocusable & 1U) != 0;
  }
  return object;
}

void AssistiveBus::collect(const Place& place, std::vector<AssistiveObject>& all) const {
  for (const Place& child : children(place)) {
    all.push_back(look_at(child));
    collect(child, all);
  }
}

bool AssistiveBus::look_for(const std::string& program) {
  for (const Place& place : children({"org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"})) {
    if (name(place) != program || children(place).empty()) continue;
    program_ = place;
    return true;
  }
  return false;
}

bool AssistiveBus::find(const std::string& program) {
  return wait_until([&] { return look_for(program); });
}

std::vector<AssistiveObject> AssistiveBus::objects() const {
  std::vector<AssistiveObject> all;
  collect(program_, all);
  return all;
}

std::optional<AssistiveObject> AssistiveBus::object(const std::string& name, const std::string& role) const {
  for (const AssistiveObject& object : objects())
    if (object.name == name && object.role == role) return object;
  return std::nullopt;
}

std::string AssistiveBus::description(const AssistiveObject& object) const {
  return property({program_.owner, object.path}, "Description");
}

bool AssistiveBus::act(const AssistiveObject& object, const std::string& action) const {
  const auto found = std::find(object.actions.begin(), object.actions.end(), action);
  if (found == object.actions.end()) return false;
  const auto index = static_cast<std::int32_t>(found - object.actions.begin());
  return sd_bus_call_method(bus_.get(), program_.owner.c_str(), object.path.c_str(), kAction, "DoAction", nullptr,
                            nullptr, "i", index) >= 0;
}

bool AssistiveBus::set_value(const AssistiveObject& object, double value) const {
  return sd_bus_set_property(bus_.get(), program_.owner.c_str(), object.path.c_str(), kValue, "CurrentValue", nullptr,
                             "d", value) >= 0;
}

int AssistiveBus::hear(sd_bus_message* message, void* self, sd_bus_error*) {
  const std::string path = sd_bus_message_get_path(message);
  const char* what = nullptr;
  if (sd_bus_message_read(message, "s", &what) > 0)
    static_cast<AssistiveBus*>(self)->heard_.push_back(path + " " + sd_bus_message_get_member(message) + " " + what);
  return 0;
}

void AssistiveBus::listen(const std::string& event) {
  if (!listens_)
    sd_bus_match_signal(bus_.get(), nullptr, nullptr, nullptr, "org.a11y.atspi.Event.Object", nullptr, hear, this);
  listens_ = true;
  constexpr const char* kRegistry = "org.a11y.atspi.Registry";
  if (sd_bus_call_method(bus_.get(), kRegistry, "/org/a11y/atspi/registry", kRegistry, "RegisterEvent", nullptr,
                         nullptr, "s", event.c_str()) < 0)
    throw std::runtime_error("no event " + event);
}

const std::vector<std::string>& AssistiveBus::heard() {
  while (sd_bus_process(bus_.get(), nullptr) > 0) {
  }
  return heard_;
}

}  // namespace tandem::test

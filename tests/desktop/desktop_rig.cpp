#include "desktop/desktop_rig.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <thread>

#include "desktop/names.h"
#include "support/temp_directory.h"

namespace tandem::test {

namespace {

sd_bus* connected(const std::string& address) {
  sd_bus* bus = nullptr;
  sd_bus_new(&bus);
  sd_bus_set_address(bus, address.c_str());
  sd_bus_set_bus_client(bus, 1);
  if (sd_bus_start(bus) < 0) throw std::runtime_error("no connection to the bus");
  return bus;
}

std::string text_of(const std::string& path) {
  std::ifstream file(path);
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

// A text, an object's path or a number of 64 bits.
std::string text_in_variant(sd_bus_message* message) {
  char type = 0;
  const char* contents = "";
  sd_bus_message_peek_type(message, &type, &contents);
  sd_bus_message_enter_container(message, 'v', contents);
  std::string result;
  if (*contents == 'x') {
    std::int64_t number = 0;
    sd_bus_message_read_basic(message, 'x', &number);
    result = std::to_string(number);
  } else {
    const char* text = "";
    sd_bus_message_read_basic(message, *contents, &text);
    result = text;
  }
  sd_bus_message_exit_container(message);
  return result;
}

std::string changed_names(sd_bus_message* signal) {
  std::string names;
  sd_bus_message_skip(signal, "s");
  sd_bus_message_enter_container(signal, 'a', "{sv}");
  while (sd_bus_message_enter_container(signal, 'e', "sv") > 0) {
    const char* name = "";
    sd_bus_message_read_basic(signal, 's', &name);
    names += (names.empty() ? "" : " ") + std::string(name);
    sd_bus_message_skip(signal, "v");
    sd_bus_message_exit_container(signal);
  }
  return names;
}

}  // namespace

DesktopRig::DesktopRig()
    : remote_(panel_.program, {[this] { ++acts_; },
                               [this](const std::vector<std::string>& paths) {
                                 drops_.push_back(paths);
                                 for (const std::string& path : paths)
                                   panel_.program.controls.Painel.files_dropped.raise(path);
                               },
                               {}}) {}

DesktopRig::~DesktopRig() = default;

void DesktopRig::SetUp() {
  for (const char* bus : {"DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS"})
    ::setenv(bus, bus_.address().c_str(), 1);
  BusFixture::SetUp();
}

void DesktopRig::TearDown() {
  services_.reset();
  sd_bus_flush_close_unref(listener_);
  BusFixture::TearDown();
  for (const char* bus : {"DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS"}) ::unsetenv(bus);
}

void DesktopRig::start() {
  bus_.start();
  listen();
  DesktopServices::Hooks hooks;
  hooks.raise = [this](const std::string& token) { raises_.push_back(token); };
  hooks.quit = [this] { ++quits_; };
  hooks.named = [this](const std::string& name) { names_.push_back(name); };
  services_ = std::make_unique<DesktopServices>(remote_, std::move(hooks));
  meanwhile([](sd_bus* bus) {
    for (const char* name : {kMprisName, kApplicationName})
      wait_until([&] { return sd_bus_get_name_creds(bus, name, 0, nullptr) >= 0; });
  });
}

void DesktopRig::listen() {
  listener_ = connected(bus_.address());
  sd_bus_match_signal(listener_, nullptr, nullptr, kMprisObject, nullptr, nullptr, &DesktopRig::on_signal, this);
}

int DesktopRig::on_signal(sd_bus_message* signal, void* self, sd_bus_error*) {
  auto& rig = *static_cast<DesktopRig*>(self);
  const std::string member = sd_bus_message_get_member(signal);
  if (member == "PropertiesChanged") {
    rig.signals_.push_back(changed_names(signal));
  } else {
    std::int64_t value = 0;
    sd_bus_message_read_basic(signal, 'x', &value);
    rig.signals_.push_back(member + " " + std::to_string(value));
  }
  return 0;
}

bool DesktopRig::soon(const std::function<bool()>& holds) {
  return BusFixture::soon([&] {
    if (services_) services_->update(now_);
    while (listener_ != nullptr && sd_bus_process(listener_, nullptr) > 0) {
    }
    return holds();
  });
}

void DesktopRig::meanwhile(const std::function<void(sd_bus*)>& job) {
  std::atomic<bool> done{false};
  std::thread client([&] {
    sd_bus* bus = connected(bus_.address());
    job(bus);
    sd_bus_flush_close_unref(bus);
    done.store(true);
  });
  EXPECT_TRUE(soon([&] { return done.load(); }));
  client.join();
}

std::string DesktopRig::output_of(const std::vector<std::string>& command) {
  const TempDirectory directory;
  ChildProcess program(command, directory.file("output"));
  std::atomic<bool> ended{false};
  std::thread waiter([&] {
    program.wait();
    ended.store(true);
  });
  EXPECT_TRUE(soon([&] { return ended.load(); }));
  if (!ended.load()) program.send(SIGKILL);
  waiter.join();
  return text_of(directory.file("output"));
}

std::string DesktopRig::call(const char* interface, const char* method, const char* types, const char* text,
                             std::int64_t number) {
  std::string error_name;
  meanwhile([&](sd_bus* bus) {
    sd_bus_error error = SD_BUS_ERROR_NULL;
    const std::string_view form = types == nullptr ? "" : types;
    if (form.empty()) sd_bus_call_method(bus, kMprisName, kMprisObject, interface, method, &error, nullptr, nullptr);
    if (form == "s") sd_bus_call_method(bus, kMprisName, kMprisObject, interface, method, &error, nullptr, "s", text);
    if (form == "x") sd_bus_call_method(bus, kMprisName, kMprisObject, interface, method, &error, nullptr, "x", number);
    if (form == "ox")
      sd_bus_call_method(bus, kMprisName, kMprisObject, interface, method, &error, nullptr, "ox", text, number);
    if (error.name != nullptr) error_name = error.name;
    sd_bus_error_free(&error);
  });
  return error_name;
}

std::string DesktopRig::text_property(const char* interface, const char* name) {
  std::string value;
  meanwhile([&](sd_bus* bus) {
    char* text = nullptr;
    sd_bus_get_property_string(bus, kMprisName, kMprisObject, interface, name, nullptr, &text);
    if (text != nullptr) value = text;
    std::free(text);
  });
  return value;
}

bool DesktopRig::flag(const char* name) {
  int value = -1;
  meanwhile([&](sd_bus* bus) {
    sd_bus_get_property_trivial(bus, kMprisName, kMprisObject, kPlayerInterface, name, nullptr, 'b', &value);
  });
  EXPECT_GE(value, 0) << name;
  return value == 1;
}

double DesktopRig::number(const char* name) {
  double value = -1;
  meanwhile([&](sd_bus* bus) {
    sd_bus_get_property_trivial(bus, kMprisName, kMprisObject, kPlayerInterface, name, nullptr, 'd', &value);
  });
  return value;
}

std::int64_t DesktopRig::long_number(const char* name) {
  std::int64_t value = -1;
  meanwhile([&](sd_bus* bus) {
    sd_bus_get_property_trivial(bus, kMprisName, kMprisObject, kPlayerInterface, name, nullptr, 'x', &value);
  });
  return value;
}

std::map<std::string, std::string> DesktopRig::metadata() {
  std::map<std::string, std::string> entries;
  meanwhile([&](sd_bus* bus) {
    sd_bus_message* reply = nullptr;
    if (sd_bus_get_property(bus, kMprisName, kMprisObject, kPlayerInterface, "Metadata", nullptr, &reply, "a{sv}") < 0)
      return;
    sd_bus_message_enter_container(reply, 'a', "{sv}");
    while (sd_bus_message_enter_container(reply, 'e', "sv") > 0) {
      const char* name = "";
      sd_bus_message_read_basic(reply, 's', &name);
      entries[name] = text_in_variant(reply);
      sd_bus_message_exit_container(reply);
    }
    sd_bus_message_unref(reply);
  });
  return entries;
}

std::vector<std::string> DesktopRig::take_signals() { return std::exchange(signals_, {}); }

bool DesktopRig::signalled(const std::string& text) {
  return soon([&] { return std::find(signals_.begin(), signals_.end(), text) != signals_.end(); });
}

}  // namespace tandem::test

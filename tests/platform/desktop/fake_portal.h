// A stand-in for the desktop portal on a test's message bus: answers reads of settings and signals their changes.
#pragma once

#include <atomic>
#include <cerrno>
#include <string>

#include "platform/desktop/bus_test_daemon.h"

namespace tandem {

class FakePortal {
 public:
  struct Settings {
    bool animations = true;
    unsigned reduced_motion = 0;
    bool knows_reduced_motion = true;  // older ones do not
  };

  FakePortal(const BusTestDaemon& bus, const Settings& settings)
      : settings_(settings), service_(bus, "org.freedesktop.portal.Desktop", kObject, [this](sd_bus_message* call) {
          return answer(call);
        }) {}

  void change_animations(bool on) {
    service_.run([on](sd_bus* bus) {
      sd_bus_emit_signal(bus, kObject, kInterface, "SettingChanged", "ssv", "org.gnome.desktop.interface",
                         "enable-animations", "b", static_cast<int>(on));
    });
  }
  void change_reduced_motion(unsigned value) {
    service_.run([value](sd_bus* bus) {
      sd_bus_emit_signal(bus, kObject, kInterface, "SettingChanged", "ssv", "org.freedesktop.appearance",
                         "reduced-motion", "u", value);
    });
  }
  void change_something_else() {
    service_.run([](sd_bus* bus) {
      sd_bus_emit_signal(bus, kObject, kInterface, "SettingChanged", "ssv", "org.gnome.desktop.interface", "font-name",
                         "s", "Nothing 11");
    });
  }
  int questions() const { return questions_.load(); }

 private:
  static constexpr const char* kObject = "/org/freedesktop/portal/desktop";
  static constexpr const char* kInterface = "org.freedesktop.portal.Settings";

  int answer(sd_bus_message* call) {
    if (sd_bus_message_is_method_call(call, kInterface, "Read") <= 0) return -EINVAL;
    const char* group = nullptr;
    const char* key = nullptr;
    if (sd_bus_message_read(call, "ss", &group, &key) <= 0) return -EINVAL;
    ++questions_;
    const std::string wanted = std::string(group) + " " + key;
    if (wanted == "org.gnome.desktop.interface enable-animations")
      return sd_bus_reply_method_return(call, "v", "v", "b", static_cast<int>(settings_.animations));
    if (wanted == "org.freedesktop.appearance reduced-motion" && settings_.knows_reduced_motion)
      return sd_bus_reply_method_return(call, "v", "v", "u", settings_.reduced_motion);
    return sd_bus_reply_method_errorf(call, "org.freedesktop.portal.Error.NotFound", "Requested setting not found");
  }

  Settings settings_;
  std::atomic<int> questions_{0};
  BusTestService service_;
};

}  // namespace tandem

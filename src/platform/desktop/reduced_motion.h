// The desktop's "reduce motion" setting, read from the desktop portal and followed as it changes. Without a session bus
// or a portal it stays off, silently; a portal that starts later is picked up. Never starts a program (no D-Bus
// activation). UI thread; must be destroyed before the QApplication.
#pragma once

#include <array>
#include <functional>
#include <string_view>

#include "platform/desktop/dbus_connection.h"

namespace tandem {

class ReducedMotionSetting {
 public:
  // Calls `changed` at each change, with true when motion is to be reduced. Off at first.
  explicit ReducedMotionSetting(std::function<void(bool reduced)> changed);
  ReducedMotionSetting(const ReducedMotionSetting&) = delete;
  ReducedMotionSetting& operator=(const ReducedMotionSetting&) = delete;

 private:
  struct Switch {  // either of them reduces motion
    ReducedMotionSetting* motion;
    const char* group;
    const char* key;
    char type;
    int reducing_value;
    bool reduces = false;
  };

  void listen();
  void read(Switch& wanted);
  void hear(Switch& about, sd_bus_message* value);
  Switch* find(std::string_view group, std::string_view key);

  static int on_value(sd_bus_message* answer, void* about, sd_bus_error*);
  static int on_changed(sd_bus_message* signal, void* self, sd_bus_error*);
  static int on_portal(sd_bus_message* signal, void* self, sd_bus_error*);

  std::function<void(bool)> changed_;
  bool reduced_ = false;
  std::array<Switch, 2> switches_{{{this, "org.gnome.desktop.interface", "enable-animations", 'b', 0},
                                   {this, "org.freedesktop.appearance", "reduced-motion", 'u', 1}}};
  DBusConnection connection_{DBusConnection::Bus::kUser};
};

}  // namespace tandem

// Keeps the machine from falling asleep while a song sounds: through the desktop portal, or login1 if there is no
// portal or it refuses. Fails silently if neither exists; starts no program. The screen may still blank; lid and power
// key are left to the desktop. UI thread; must be destroyed before the QApplication.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/desktop/dbus_connection.h"

namespace tandem {

class SleepInhibitor {
 public:
  // `session` is where the portal is; the system bus is looked for when it is needed.
  explicit SleepInhibitor(DBusConnection& session);
  ~SleepInhibitor();
  SleepInhibitor(const SleepInhibitor&) = delete;
  SleepInhibitor& operator=(const SleepInhibitor&) = delete;

  void hold(bool wanted);  // answered by the portal or login1 later

 private:
  void ask_portal();
  void ask_login();
  void let_go();

  static int on_portal_answer(sd_bus_message* answer, void* self, sd_bus_error*);
  static int on_portal_verdict(sd_bus_message* signal, void* self, sd_bus_error*);
  static int on_login_answer(sd_bus_message* answer, void* self, sd_bus_error*);
  static int on_portal_change(sd_bus_message* signal, void* self, sd_bus_error*);

  DBusConnection& session_;
  std::optional<DBusConnection> system_;
  bool wanted_ = false;
  bool asking_ = false;
  bool portal_changed_ = false;  // while one of the two was asked
  std::string request_;          // the portal's object; empty: none
  std::string refused_;          // one that the portal, or its user, has said no to
  std::unique_ptr<sd_bus_message, decltype(&sd_bus_message_unref)> lock_{nullptr, &sd_bus_message_unref};  // login1's
};

}  // namespace tandem

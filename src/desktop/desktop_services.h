// Desktop integration: MPRIS media player, D-Bus activation, sleep inhibitor. Without a session bus only the last
// remains. UI thread; must be destroyed before the QApplication.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "desktop/application_service.h"
#include "desktop/mpris_player.h"
#include "desktop/panel_remote.h"
#include "desktop/sleep_inhibitor.h"
#include "platform/desktop/dbus_connection.h"

namespace tandem {

class DesktopServices {
 public:
  struct Hooks {
    std::function<void(const std::string& token)> raise;  // the window; `token`: the desktop's activation token
    std::function<void()> quit;                           // soon, not within the call
    std::function<void(const std::string& name)> named;   // the song that sounds, "" for none, at every change
  };
  DesktopServices(PanelRemote& remote, Hooks hooks);
  DesktopServices(const DesktopServices&) = delete;
  DesktopServices& operator=(const DesktopServices&) = delete;

  // At every turn of the event loop. `now` in milliseconds of any clock that does not jump.
  void update(std::int64_t now);

 private:
  void follow_name();

  PanelRemote& remote_;
  Hooks hooks_;
  std::string song_;  // its path
  std::optional<MprisPlayer> media_player_;
  std::optional<ApplicationService> application_;
  DBusConnection session_{DBusConnection::Bus::kUser};  // gone before what answers on it
  SleepInhibitor sleep_inhibitor_{session_};
};

}  // namespace tandem

// The desktop portal on the session bus (XDG Desktop Portal). Constants; any thread.
#pragma once

namespace tandem {

inline constexpr const char* kPortalService = "org.freedesktop.portal.Desktop";
inline constexpr const char* kPortalObject = "/org/freedesktop/portal/desktop";

// What the bus signals when the portal begins or ends.
inline constexpr const char* kPortalComesOrGoes =
    "type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',"
    "member='NameOwnerChanged',arg0='org.freedesktop.portal.Desktop'";

}  // namespace tandem

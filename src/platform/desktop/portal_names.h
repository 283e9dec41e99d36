// The desktop portal on the session bus (XDG Desktop Portal).
#pragma once

namespace tandem {

inline constexpr const char* kPortalService = "org.freedesktop.portal.Desktop";
inline constexpr const char* kPortalObject = "/org/freedesktop/portal/desktop";

}  // namespace tandem

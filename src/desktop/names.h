// What the player is called on the session bus, in the desktop's list of programs and by Wayland compositors.
// Constants; any thread.
#pragma once

namespace tandem {

inline constexpr const char* kApplicationName = "org.tandem_player.Tandem";
inline constexpr const char* kApplicationObject = "/org/tandem_player/Tandem";
inline constexpr const char* kMprisName = "org.mpris.MediaPlayer2.tandem";
inline constexpr const char* kMprisObject = "/org/mpris/MediaPlayer2";

}  // namespace tandem

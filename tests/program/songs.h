// Short songs for one test each, and what the panel is notified of while they play.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "program/player_rig.h"
#include "support/signal.h"

namespace tandem::test {

struct AddedSong {
  std::string path;
  Sound sound;
};

// Writes a 16-bit WAV file; add_song() also adds it to the list by the song dialog.
AddedSong make_song(const PlayerRig& rig, const std::string& name, const Signal& signal);
AddedSong add_song(PlayerRig& rig, const std::string& name, const Signal& signal);
// Noise below a fifth of full scale, of its own for each name.
AddedSong add_noise(PlayerRig& rig, const std::string& name, std::int64_t milliseconds);

// The same value in every sample: shows every gain as it is.
Signal constant(double value, std::int64_t milliseconds);

// What happened on the panel's notifications, in order: "tick P0 P1", "finished I" (followed by "!" if the input
// was not muted). Ticks are kept only if a position reads as past every end.
class PanelLog {
 public:
  explicit PanelLog(PlayerRig& rig);
  std::vector<std::string> events;
  std::vector<std::int64_t> times;  // of the events, in ms
  std::size_t count(const std::string& event) const;
};

}  // namespace tandem::test

// The display panel: title and total time of a song, playing position, time of day. UI thread.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "audio/sound_graph.h"
#include "base/notification.h"
#include "base/text.h"
#include "controls/run_state.h"
#include "playlist/song_table.h"

namespace tandem {

struct PanelControls;

// The time of day as text that begins with hours and minutes, "HH:MM".
using TimeOfDay = std::function<std::string()>;

class TimeDisplay {
 public:
  TimeDisplay(PanelControls& controls, SoundGraph& sound, RunState& state, const SongEntries& song_table,
              UpperCase upper_case, TimeOfDay time_of_day);

  // Title (the file's name in capitals; from 14 characters on it scrolls after 14 blanks) and total time of a song.
  void ShowSongInfo(std::int32_t song);
  // Every 200 ms: clock, position, position slider. A position of 0 changes nothing; nothing moves while the user holds
  // the slider. During a mix it is still the outgoing song's position.
  void refresh();

  Notification<const std::string&> song_shown;  // the file that ShowSongInfo has last been given

 private:
  void show_title(const std::string& file);

  PanelControls& controls_;
  SoundGraph& sound_;
  RunState& state_;
  const SongEntries& SongTable;
  UpperCase upper_case_;
  TimeOfDay time_of_day_;
};

}  // namespace tandem

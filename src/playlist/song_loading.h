// LoadSong: the user picks songs, and they go to the end of the list. UI thread.
// Errors end the handler where it is; what was added until then stays.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "audio/sound_graph.h"
#include "base/text.h"
#include "controls/run_state.h"
#include "playlist/song_append.h"
#include "playlist/song_table.h"

namespace tandem {

struct PanelControls;

class SongLoading {
 public:
  SongLoading(PanelControls& controls, SoundGraph& sound, RunState& state, SongEntries& song_table,
              UpperCase upper_case);

  void choose_songs();  // asks in the file dialog; cancel throws and changes nothing
  // What the dialog gave, or what was dropped on the window: one full path, or directory, NUL, name, NUL, name. Several
  // files are added from the last to the first.
  void add_songs(const std::string& result);

  void press();
  void release();

 private:
  void split(std::string_view result);
  std::int32_t next_nul(std::int32_t from) const;
  std::string characters(std::int32_t from, std::int32_t to) const;
  std::size_t parse_names(std::int32_t first_nul);
  void add_one(const std::string& path);
  void add_several(std::int32_t first_nul);
  void show_title(std::string_view name);

  PanelControls& controls_;
  SoundGraph& sound_;
  RunState& state_;
  SongEntries& SongTable;
  SongAppender appender_;
  UpperCase upper_case_;
  std::array<std::string, 201> PickedNames;
};

}  // namespace tandem

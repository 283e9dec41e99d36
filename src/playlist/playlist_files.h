// SaveList and LoadList: playlist files (.m3l), one song path a line. UI thread.
// Errors end a handler where it is; what it did until then stays.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "audio/sound_graph.h"
#include "controls/run_state.h"
#include "playlist/song_append.h"
#include "playlist/song_table.h"

namespace tandem {

struct PanelControls;

class PlaylistFiles {
 public:
  PlaylistFiles(PanelControls& controls, SoundGraph& sound, RunState& state, SongEntries& song_table)
      : controls_(controls), state_(state), appender_(controls, sound, state, song_table) {}

  void save();  // at most 200 lines, each without its first four characters, CR LF
  // Asks for a file in the dialog and opens it.
  void open();
  // Replaces PlayList and fills the table from the top. ListAux2 is not cleared, the new lines follow what it held: on
  // purpose. Fields end at commas and line ends, so a path with a comma comes back as two entries.
  void open_list(const std::string& path);

 private:
  std::size_t read_fields(const std::string& path);

  PanelControls& controls_;
  RunState& state_;
  SongAppender appender_;
  std::array<std::string, 201> ListFileLines;
};

}  // namespace tandem

// One file at the end of the list: probed, counted, shown and entered. UI thread.
#pragma once

#include <optional>
#include <string>

#include "audio/sound_graph.h"
#include "controls/run_state.h"
#include "playlist/song_table.h"

namespace tandem {

struct PanelControls;

class SongAppender {
 public:
  SongAppender(PanelControls& controls, SoundGraph& sound, RunState& state, SongEntries& song_table)
      : controls_(controls), sound_(sound), state_(state), SongTable(song_table) {}

  // The line shows the name that the reader accepted, or the given text. A refused file does not count, but still gets
  // a line, which repeats the number before it, and overwrites that song's entry: on purpose. Beyond song 200 throws
  // Range after the lines were added.
  void append_accepted(const std::string& path);
  void append_as_given(const std::string& path);

 private:
  void append(const std::string& path, const std::optional<std::string>& shown);

  PanelControls& controls_;
  SoundGraph& sound_;
  RunState& state_;
  SongEntries& SongTable;
};

}  // namespace tandem

// Selecting, removing and moving songs of the list. UI thread.
// The list lives in four places that go together: PlayList, its hidden twin ListAux2, the song table and SongCount.
// Errors end a handler where it is; what it did until then stays.
#pragma once

#include <cstdint>

#include "audio/sound_graph.h"
#include "controls/run_state.h"
#include "playlist/song_table.h"

namespace tandem {

struct PanelControls;

class ListHandlers {
 public:
  ListHandlers(PanelControls& controls, SoundGraph& sound, RunState& state, SongEntries& song_table)
      : controls_(controls), sound_(sound), state_(state), SongTable(song_table) {}

  // A click on a line: it is remembered, and a long title in SongLabel begins to scroll.
  void click_line();
  // A double-click removes the line, unless it is the song that is playing.
  void remove_line();

  // One place up or down. Pressed with nothing to move, the lists stay but the table's entries 0 and 1 (up) or 1 and 2
  // (down) are exchanged all the same; that asymmetry is on purpose. NextBtn stays disabled until the list is
  // synchronised again.
  void move_up();
  void move_down();

  // The list and the equalizer panel share one area; the button's colour says which is in front.
  void show_or_hide_list();

 private:
  bool is_playing(std::int32_t song) const;
  void renumber();
  void exchange_lines(std::int32_t line, std::int32_t with);
  void rebuild_list();
  void end_move();

  PanelControls& controls_;
  SoundGraph& sound_;
  RunState& state_;
  SongEntries& SongTable;
};

}  // namespace tandem

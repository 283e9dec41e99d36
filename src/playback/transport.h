// The four commands of playing. UI thread.
// The output runs all the time: playing and stopping is unmuting and muting the mixer's inputs and switching MixTimer
// on and off. Only Pause acts on the output. The state is in the controls: MixTimer's interval is 10 while playing and
// 0 while stopped, PAUSE is yellow while paused, NextBtn is disabled and grey while a skipped song runs out. Errors end
// a command where it is.
#pragma once

#include <cstdint>

#include "audio/sound_graph.h"
#include "controls/run_state.h"
#include "playback/time_display.h"
#include "playlist/song_table.h"

namespace tandem {

struct PanelControls;

class Transport {
 public:
  Transport(PanelControls& controls, SoundGraph& sound, RunState& state, const SongEntries& song_table,
            TimeDisplay& display)
      : controls_(controls), sound_(sound), state_(state), SongTable(song_table), display_(display) {}

  // Starts the selected song, or the first, from its beginning on deck 0. Leaves MixStarted and PAUSE as they are.
  void play();
  void pause();  // and on again
  void stop();   // STOPBtn; also at the list's end and when the buffers change
  // Starts the next song on the idle deck at once and lets the current one run out within four seconds. The decks
  // change over when that has ended.
  void next();

 private:
  void start_first();
  void start_selected(std::int32_t song);
  void disable_changes();

  PanelControls& controls_;
  SoundGraph& sound_;
  RunState& state_;
  const SongEntries& SongTable;
  TimeDisplay& display_;
};

}  // namespace tandem

// The whole logic, made once: the player, the tools and the tests build the same one. UI thread.
//
//   Program program(make_graph, environment);   // everything wired, nothing started
//   program.panel.load();                       // a RuntimeError here, or in unload(), ends the program
//   ... user moves on program.controls, program.timers.advance(now) ...
//   program.panel.unload();
#pragma once

#include <functional>
#include <string>

#include "audio/sound_graph.h"
#include "base/timer_queue.h"
#include "controls/panel_controls.h"
#include "controls/run_state.h"
#include "playback/automatic_mix.h"
#include "playback/time_display.h"
#include "playback/transport.h"
#include "playlist/list_handlers.h"
#include "playlist/playlist_files.h"
#include "playlist/song_loading.h"
#include "playlist/song_table.h"
#include "settings/settings_file.h"
#include "shaping/analyser_board.h"
#include "shaping/display_selector.h"
#include "shaping/equalizer_sliders.h"
#include "shaping/pitch_and_volume.h"
#include "shaping/seeking.h"
#include "shell/painel.h"

namespace tandem {

// What the program needs of the world around it.
struct Environment {
  std::string program_directory;                         // where TP.inf lies
  TimeOfDay time_of_day;                                 // "HH:MM", 24 hours
  UpperCase upper_case;                                  // one-to-one
  std::function<void(const std::string&)> show_message;  // must not wait: the timers go on
  FileDialog& dialog;
};

class Program {
 public:
  // Makes the components, with MixTimer, Timer and ListTimer on the queue in that order (they tick in it).
  using MakeGraph = std::function<SoundGraph(TimerQueue&)>;

  Program(const MakeGraph& make_graph, const Environment& environment);
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  // A handler of the playlist, the transport, the mix or the time display has ended early.
  Notification<const RuntimeError&> ended_early;

  // TimerDelay ticks after the graph's timers: the graph is made first.
  TimerQueue timers;
  SoundGraph sound;
  PanelControls controls;
  RunState state;
  SongEntries SongTable;

  ListHandlers list;
  SongLoading loading;
  PlaylistFiles files;
  TimeDisplay display;
  Transport transport;
  AutomaticMix mix;
  PitchAndVolume pitch;
  Seeking seeking;
  EqualizerSliders equalizer;
  AnalyserBoard board;
  DisplaySelector selector;
  SettingsFile settings;
  Painel panel;
};

}  // namespace tandem

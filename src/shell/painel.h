// The panel as a whole: start-up, shut-down, size toggle, pitch reset. UI thread.
#pragma once

#include "audio/sound_graph.h"
#include "base/twips.h"
#include "controls/run_state.h"
#include "playback/automatic_mix.h"
#include "settings/settings_file.h"
#include "shaping/analyser_board.h"
#include "shaping/display_selector.h"
#include "shaping/equalizer_sliders.h"

namespace tandem {

struct PanelControls;

class Painel {
 public:
  struct Parts {
    PanelControls& controls;
    SoundGraph& sound;
    RunState& state;
    SettingsFile& settings;
    EqualizerSliders& equalizer;
    AnalyserBoard& board;
    DisplaySelector& selector;
    AutomaticMix& mix;
  };
  explicit Painel(const Parts& parts) : parts_(parts), controls_(parts.controls), state_(parts.state) {}

  // Once each, in this order. Neither handles errors: a RuntimeError ends the program with its report.
  void load();
  void unload();

  // Exactly the full width becomes the small player in its place; any other width the full panel, centred.
  void toggle_size();

  // Command2.
  void reset_pitch();
  void press_reset();
  void release_reset();

 private:
  void set_size(Twips height, Twips width);
  void clear_playlist();
  void apply_settings();
  void apply_values();
  void apply_choices();

  Parts parts_;
  PanelControls& controls_;
  RunState& state_;
};

}  // namespace tandem

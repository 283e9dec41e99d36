// The 15 sliders of the equalizer and its bypass. UI thread.
#pragma once

#include <cstddef>

#include "audio/sound_graph.h"
#include "controls/run_state.h"

namespace tandem {

struct PanelControls;

class EqualizerSliders {
 public:
  EqualizerSliders(PanelControls& controls, SoundGraph& sound, RunState& state)
      : controls_(controls), sound_(sound), state_(state) {}

  void add_bands();                    // once, at start-up: one flat filter for each band, band 0 first
  void change_band(std::size_t band);  // the slider's position is the gain in dB
  void change_bypass();                // position 1: equalizer in circuit; 0: bypassed

 private:
  PanelControls& controls_;
  SoundGraph& sound_;
  RunState& state_;
};

}  // namespace tandem

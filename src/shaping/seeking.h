// The position slider as the user moves it. UI thread. Only the release seeks; a move only changes LblPosition.
#pragma once

#include "audio/sound_graph.h"
#include "controls/run_state.h"

namespace tandem {

struct PanelControls;

class Seeking {
 public:
  Seeking(PanelControls& controls, SoundGraph& sound, RunState& state)
      : controls_(controls), sound_(sound), state_(state) {}

  void press();
  void change();  // the whole time text after "0", not cut as elsewhere: on purpose
  void release();

 private:
  PanelControls& controls_;
  SoundGraph& sound_;
  RunState& state_;
};

}  // namespace tandem

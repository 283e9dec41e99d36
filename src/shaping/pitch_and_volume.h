// The pitch slider and the volume wheel, which share one read-out. UI thread.
// At rest the read-out says "VOLUME" in yellow above the gauge; while the pitch slider is held it shows the pitch in
// steps of five slider units in aqua above three lamps: minus, zero, plus.
#pragma once

#include <cstdint>

#include "audio/sound_graph.h"
#include "controls/run_state.h"

namespace tandem {

struct PanelControls;

class PitchAndVolume {
 public:
  PitchAndVolume(PanelControls& controls, SoundGraph& sound, RunState& state)
      : controls_(controls), sound_(sound), state_(state) {}

  void press_pitch();
  // Sets the pitch of the heard deck alone. The other deck keeps its own, also when it becomes the heard one: on
  // purpose.
  void change_pitch();
  void release_pitch();
  // TimerDelay, 1.5 s after a pitch reset: the read-out goes back to rest, once.
  void end_reset();

  void change_volume();

 private:
  void show_step(std::int32_t p, bool plus);
  void show_small_step(std::int32_t p);

  PanelControls& controls_;
  SoundGraph& sound_;
  RunState& state_;
};

}  // namespace tandem

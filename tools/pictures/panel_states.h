// The states of PanelScene: what is put into the controls. UI thread.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "audio/sound_graph.h"
#include "controls/mix_view.h"
#include "controls/panel_controls.h"

namespace tandem {

struct PanelStateParts {
  PanelControls& controls;
  SoundGraph& sound;
  MixView& mix;
};

struct NamedState {
  std::string_view name;
  void (*put)(PanelStateParts& parts);
  bool shadow = false;  // where the desktop composites windows
  int hovering = 0;     // files over the window
  bool plays = true;    // music; else the displays rest
};

const std::vector<NamedState>& named_states();

}  // namespace tandem

// Whether the panel is paused or stopped, which its own state shows in one place each: the colour of PAUSE, the picture
// of STOP. UI thread.
#pragma once

#include "controls/panel_controls.h"

namespace tandem {

inline bool is_paused(const PanelControls& controls) { return controls.PAUSE.BackColor == clYellow; }

inline bool is_stopped(const PanelControls& controls) {
  constexpr int kLit = 5;
  return controls.STOPBtn.Picture == kLit;
}

}  // namespace tandem

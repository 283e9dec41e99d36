// Whether the panel is paused, which its own state shows in one place only: the colour of PAUSE. UI thread.
#pragma once

#include "controls/panel_controls.h"

namespace tandem {

inline bool is_paused(const PanelControls& controls) { return controls.PAUSE.BackColor == clYellow; }

}  // namespace tandem

// The views of the panel's displays. A new display gets its line here. UI thread.
#pragma once

#include "audio/sound_graph.h"
#include "widgets/display_area/display_view.h"

namespace tandem {

// In the order in which they are drawn. The graph's displays are those of add_displays().
DisplayViews views_of(SoundGraph& sound);

}  // namespace tandem

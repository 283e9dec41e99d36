// The panel's five displays, made for its sound graph. UI thread.
#pragma once

#include "audio/sound_graph.h"

namespace tandem {

void add_displays(SoundGraph& graph);

}  // namespace tandem

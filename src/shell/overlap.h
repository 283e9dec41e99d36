// Whether two songs sound at once: in a mix, or while a skipped song runs out. What changes the list then makes the
// panel load the idle deck again, and that deck has begun to sound: the incoming song would be cut. UI thread.
#pragma once

#include "audio/sound_graph.h"

namespace tandem {

inline bool songs_overlap(const SoundGraph& sound) { return !sound.WaveMixer->Mute(0) && !sound.WaveMixer->Mute(1); }

}  // namespace tandem

// Music for what shows the displays at work.
#pragma once

#include <vector>

#include "displays/core/sound_frame.h"

namespace tandem {

// The samples of a WAV file of 16 bits, stereo, 44.1 kHz from `second` on, at most `seconds` of it. Empty if it
// cannot be read or is not such a file with the common header of 44 bytes.
std::vector<SoundFrame> piece_of_music(const char* path, double second, double seconds);

}  // namespace tandem

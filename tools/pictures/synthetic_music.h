// Made-up music of a few kinds, the same on every run: for pictures of a player at work, and for what must hold with
// music of any kind. Stereo, 44.1 kHz, peak at half of full scale. Any thread.
#pragma once

#include <vector>

#include "displays/core/sound_frame.h"

namespace tandem {

// Drums, bass, chords and a tune, with rests between the notes.
std::vector<SoundFrame> band_music(double seconds);
// Every frequency all the time, within a few dB: a compressed recording of many guitars.
std::vector<SoundFrame> dense_music(double seconds);
// Syllables of a voice between pauses.
std::vector<SoundFrame> spoken_words(double seconds);

}  // namespace tandem

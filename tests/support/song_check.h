// Reads whole songs for tests.
#pragma once

#include <string>

#include "engine/read/song_measure.h"
#include "engine/read/song_source.h"
#include "support/bytes.h"
#include "support/signal.h"
#include "support/temp_directory.h"

namespace tandem::test {

// Resampling from an aligned place repeats its sums but for rounding: below -100 dB.
inline constexpr float kResampledTolerance = 1e-5F;

Sound read_all(SongSource& source);

struct SongCheck {
  bool opened = false;
  Sound sound;           // read from front to back
  Frames length = -1;    // by SongSource
  Frames measured = -1;  // by measure_song()
  int misplaced = 0;     // of 300 random seeks, those after which too few or too many frames came
  float difference = 0;  // greatest deviation of a sample after these seeks from `sound`
  // All three lengths agree, and no seek was misplaced or differed by more than `tolerance`.
  bool consistent(float tolerance) const;
};

SongCheck check_song(const std::string& path);
SongCheck check_song(const Bytes& file);

}  // namespace tandem::test

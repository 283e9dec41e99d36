// A stretch of a song with one sample rate.
#pragma once

#include "engine/core/frames.h"

namespace tandem {

struct Section {
  int rate = 0;       // Hz
  Frames length = 0;  // in frames of that rate
};

// Length at 44100 Hz, rounded to the nearest frame.
Frames length_at_sample_rate(const Section& section);

}  // namespace tandem

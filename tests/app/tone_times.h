// When a steady tone begins and ends in a recording.
#pragma once

#include <optional>
#include <vector>

#include "engine/device/output_ring.h"

namespace tandem::test {

// Of the songs that tests play, Hz.
inline constexpr double kTone = 2000;

struct ToneTimes {
  double begin = 0;  // seconds
  double end = 0;
};

// Both ends lie where a sliding window of 5 ms is half full of the tone, so their differences are exact to less than a
// millisecond. Nothing if the tone is not heard.
std::optional<ToneTimes> find_tone(const std::vector<Sample16>& recording, double hertz);

}  // namespace tandem::test

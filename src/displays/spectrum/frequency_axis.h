// The logarithmic frequency axis of the spectrum. Values; any thread.
#pragma once

#include <cmath>
#include <cstdint>

namespace tandem {

// Equal distances are equal intervals: an octave is as wide at 50 Hz as at 5 kHz.
struct FrequencyAxis {
  double low_hz = 40.0;
  double high_hz = 20000.0;

  // 0 at the left end of the axis, 1 at the right end; outside that for frequencies that it does not show.
  double position(double hz) const { return std::log(hz / low_hz) / std::log(high_hz / low_hz); }
  double hz(double position) const { return low_hz * std::pow(high_hz / low_hz, position); }
  friend bool operator==(const FrequencyAxis&, const FrequencyAxis&) = default;
};

// 40 Hz to 20 kHz at scale 1. At scale n, the n-th part of that distance with the reference frequency in its middle,
// moved where necessary to lie within the whole.
FrequencyAxis shown_axis(std::int32_t horizontal_scale, double reference_hz);

}  // namespace tandem

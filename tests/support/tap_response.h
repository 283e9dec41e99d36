// What a filter does to each frequency.
#pragma once

#include <cstddef>
#include <vector>

namespace tandem::test {

// In steps from 0 Hz to half the sample rate.
struct TapResponse {
  double step_hz = 0.0;
  std::vector<double> level_db;
  std::vector<double> delay_ms;  // group delay

  double level_at(double hz) const;  // on the line between the two nearest; below half the sample rate
};

// `points`: of the transform, even and no fewer than the taps. Any thread.
TapResponse tap_response(const std::vector<float>& taps, std::size_t points);

}  // namespace tandem::test

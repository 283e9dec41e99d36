// Rounding to a whole number as the panel does it everywhere: a half goes to the even neighbour.
// Any thread; nothing fails.
#pragma once

#include <cmath>

namespace tandem {

// Half to even, whatever the floating-point environment says.
inline double rounded_half_to_even(double value) {
  const double below = std::floor(value);
  if (value - below != 0.5) return std::floor(value + 0.5);
  return std::fmod(below, 2.0) == 0.0 ? below : below + 1.0;
}

}  // namespace tandem

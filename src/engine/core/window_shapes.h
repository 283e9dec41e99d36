// The shapes of windows and fades. Any thread; no state.
#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tandem {

// Half a wave of a raised cosine: from 0 at 0 (and before) to 1 at 1 (and after).
inline double raised_cosine(double place) noexcept {
  return 0.5 - 0.5 * std::cos(std::numbers::pi * std::clamp(place, 0.0, 1.0));
}

// Kaiser's window: 1 in the middle (place 0), least at either end (-1 and 1). beta: how deep the stop band is.
// Source: J. F. Kaiser, "Nonrecursive digital filter design using the I0-sinh window function" (1974).
inline double kaiser_window(double place, double beta) {
  return std::cyl_bessel_i(0.0, beta * std::sqrt(1.0 - place * place)) / std::cyl_bessel_i(0.0, beta);
}
// The beta for a stop band so many dB down, 50 or more; by Kaiser's estimate.
constexpr double kaiser_beta(double attenuation_db) noexcept { return 0.1102 * (attenuation_db - 8.7); }

}  // namespace tandem

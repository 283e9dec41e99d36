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

// The modified Bessel function of order 0 for |x| up to 30, to the precision of double; by its power series, all of
// whose terms are positive (Abramowitz and Stegun 9.6.12). std::cyl_bessel_i takes a hundred times as long.
inline double bessel_i0(double x) noexcept {
  const double quarter = x * x / 4.0;
  double sum = 1.0;
  double term = 1.0;
  for (double k = 1.0; term > 1e-17 * sum; k += 1.0) {
    term *= quarter / (k * k);
    sum += term;
  }
  return sum;
}

// Kaiser's window: 1 in the middle (place 0), least at either end (-1 and 1). beta: how deep the stop band is.
// Source: J. F. Kaiser, "Nonrecursive digital filter design using the I0-sinh window function" (1974).
inline double kaiser_window(double place, double beta) noexcept {
  return bessel_i0(beta * std::sqrt(1.0 - place * place)) / bessel_i0(beta);
}
// The beta for a stop band `attenuation_db` down, 50 or more; by Kaiser's estimate.
constexpr double kaiser_beta(double attenuation_db) noexcept { return 0.1102 * (attenuation_db - 8.7); }

}  // namespace tandem

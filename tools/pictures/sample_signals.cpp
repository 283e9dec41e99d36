#include "tools/pictures/sample_signals.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "paint/displays/oscilloscope.h"
#include "paint/strokes/random_sequence.h"

namespace tandem {

namespace {

double bump(double at, double centre, double width) { return std::exp(-std::pow((at - centre) / width, 2)); }

}  // namespace

std::vector<float> sample_trace(double phase, double amplitude, std::uint32_t seed) {
  RandomSequence noise(seed);
  std::vector<float> values;
  for (int i = 0; i < kScopeValues; ++i) {
    const double u = static_cast<double>(i) / kScopeValues * 2 * std::numbers::pi;
    const double v = std::sin(u * 3 + phase) * .50 + std::sin(u * 7.3 + phase * 2.1) * .24 +
                     std::sin(u * 17 + phase) * .12 + std::sin(u * 43 + phase * 3) * .06 * (1 + std::sin(u * 2)) +
                     (noise.next() - .5) * .035;
    values.push_back(static_cast<float>(amplitude * v * (.72 + .28 * std::sin(u * 1.2 + .6))));
  }
  return values;
}

std::vector<float> sample_spectrum(int columns, std::uint32_t seed, double tilt) {
  RandomSequence noise(seed * 7919U);
  std::vector<float> heights;
  for (int i = 0; i < columns; ++i) {
    const double f = static_cast<double>(i) / columns;
    double v = .80 * std::exp(-f * 1.15 * tilt) + .14 * bump(f, .07, .05) + .17 * bump(f, .30, .05) +
               .13 * bump(f, .52, .04) + .26 * (noise.next() - .5) * (1 - f * .4) - .04;
    if (f > .84) v -= (f - .84) * 1.2;
    heights.push_back(static_cast<float>(std::clamp(v, .04, .95)));
  }
  return heights;
}

}  // namespace tandem

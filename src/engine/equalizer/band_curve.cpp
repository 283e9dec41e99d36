#include "engine/equalizer/band_curve.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "engine/core/window_shapes.h"

namespace tandem {

namespace {

constexpr double kTransition = 0.8;  // of the way from centre to centre, in octaves

double level_between(const BandCentre& below, const BandCentre& above, double hz) {
  const double place = std::log(hz / below.hz) / std::log(above.hz / below.hz);
  return std::lerp(below.gain_db, above.gain_db, raised_cosine(0.5 + (place - 0.5) / kTransition));
}

}  // namespace

std::vector<BandCentre> centres_of(std::span<const EqualizerBand> bands) {
  std::vector<BandCentre> centres;
  for (const EqualizerBand& band : bands) {
    const double arithmetic = (band.low_hz + band.high_hz) / 2.0;
    const double geometric = band.low_hz > 0.0 ? std::sqrt(band.low_hz * band.high_hz) : arithmetic;
    centres.push_back({geometric, arithmetic, std::sqrt(geometric * arithmetic), band.gain_db});
  }
  return centres;
}

std::vector<float> band_curve(std::span<const BandCentre> centres, double spacing_hz, std::size_t points) {
  std::vector<float> curve(points);
  std::size_t above = 0;  // the first centre that is not below
  for (std::size_t i = 0; i < points; ++i) {
    const double hz = spacing_hz * static_cast<double>(i);
    while (above < centres.size() && centres[above].hz <= hz) ++above;
    const bool between = above > 0 && above < centres.size();
    curve[i] = static_cast<float>(between ? level_between(centres[above - 1], centres[above], hz)
                                          : centres[std::min(above, centres.size() - 1)].gain_db);
  }
  return curve;
}

}  // namespace tandem

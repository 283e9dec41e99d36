// The panel's equalizer with given gains, for the filter design. Values; any thread.
#pragma once

#include <array>
#include <vector>

#include "engine/equalizer/filter_design.h"

namespace tandem::test {

inline constexpr std::array<double, 16> kEdges{0,    32,   64,   130,  260,  470,  540,   630,
                                               1200, 2500, 4000, 5400, 6300, 8300, 12000, 20000};  // Hz
using Gains = std::array<double, 15>;                                                              // dB

inline std::vector<EqualizerBand> bands_of(const Gains& gains) {
  std::vector<EqualizerBand> bands;
  for (std::size_t i = 0; i < gains.size(); ++i) bands.push_back({kEdges[i], kEdges[i + 1], gains[i]});
  return bands;
}

inline Gains even_gains(double gain) {
  Gains gains;
  gains.fill(gain);
  return gains;
}

inline Gains alternating_gains(double gain) {
  Gains gains;
  for (std::size_t i = 0; i < gains.size(); ++i) gains[i] = i % 2 == 0 ? gain : -gain;
  return gains;
}

}  // namespace tandem::test

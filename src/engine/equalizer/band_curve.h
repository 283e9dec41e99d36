// The level that the equalizer is to have at every frequency: each band's gain around its centre, and between two
// centres a half wave of a cosine over the middle 80 % of the way in octaves. Without walls at the edges the response
// neither rings nor delays: as smooth as the centres allow. Any thread; no state.
#pragma once

#include <span>
#include <vector>

namespace tandem {

// One band of the equalizer: its edges in Hz, its gain in dB (0 = unchanged).
// Bands stand in ascending order; below the first centre and above the last one the gain is held.
struct EqualizerBand {
  double low_hz;
  double high_hz;
  double gain_db;
};

// What may be called the middle of a band. A band from 0 Hz has only the arithmetic one.
struct BandCentre {
  double geometric_hz;
  double arithmetic_hz;
  double hz;  // between them: here the gain is exact
  double gain_db;
};

std::vector<BandCentre> centres_of(std::span<const EqualizerBand> bands);

// The level in dB at 0, spacing_hz, 2 spacing_hz, ...
std::vector<float> band_curve(std::span<const BandCentre> centres, double spacing_hz, std::size_t points);

}  // namespace tandem

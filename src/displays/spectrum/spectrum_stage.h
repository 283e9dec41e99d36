// One of the spectrum's transforms: a rate, a length and the bands that it resolves. UI thread only.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "displays/core/sound_frame.h"
#include "displays/spectrum/band_map.h"
#include "displays/spectrum/stereo_spectrum.h"

namespace tandem {

class SpectrumStage {
 public:
  // edges_hz: of this stage's bands, one more than there are, or empty. rate: of the sound that it is given.
  void prepare(std::size_t points, FftWindow window, double rate, std::span<const double> edges_hz);
  void add(std::span<const SoundFrame> frames) noexcept;  // at most as many as it has points
  void transform() noexcept;                              // of the newest `points` frames
  // Raises its bands to what the last transform holds.
  void raise(BothSides<std::span<float>> bands) const noexcept;
  void clear() noexcept;
  std::size_t bands() const noexcept { return bands_.bands(); }

 private:
  StereoSpectrum spectrum_;
  BandMap bands_;
  std::vector<SoundFrame> newest_;
};

}  // namespace tandem

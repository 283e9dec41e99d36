// Where a sound can be spliced to another place of itself: the place at which what follows is most alike. The heart of
// time stretching by WSOLA (W. Verhelst, M. Roelands: An overlap-add technique based on waveform similarity, 1993).
// One thread; allocates only when constructed.
#pragma once

#include <array>
#include <cstddef>

#include "engine/pitch/sliding_window.h"

namespace tandem {

class SpliceSearch {
 public:
  static constexpr std::size_t kOverlap = 882;  // 20 ms are compared, and faded over afterwards
  static constexpr Frames kReach = 552;         // places up to 12.5 ms to either side are tried

  // The place within kReach of `centre` that is most like `tail` for kOverlap frames. A place at the very edge must be
  // better than one in the middle by `bias` (of a correlation of -1..1); of equal ones the nearest to the middle is
  // taken. Needs the sound from `tail` and up to centre + kReach, kOverlap frames each; nothing before sound.begin() is
  // tried.
  Frames best(const SlidingWindow& sound, Frames tail, Frames centre, float bias) noexcept;

 private:
  static constexpr std::size_t kCoarse = 4;  // frames that are one in the first, coarse pass
  static constexpr std::size_t kCoarseOverlap = kOverlap / kCoarse;
  static constexpr std::size_t kCoarseSpan = kCoarseOverlap + 2 * static_cast<std::size_t>(kReach) / kCoarse;

  // Both channels, one after the other.
  template <std::size_t N>
  using Stereo = std::array<std::array<float, N>, 2>;

  Frames coarse(const SlidingWindow& sound, Frames tail, Frames low, Frames high, Frames centre, float bias) noexcept;

  Stereo<kCoarseOverlap> pattern_{};
  Stereo<kCoarseSpan> field_{};
};

}  // namespace tandem

// Where a sound can be spliced to another place of itself: the place from which it goes on most like the present one.
// The heart of time stretching by WSOLA (W. Verhelst, M. Roelands: An overlap-add technique based on waveform
// similarity (WSOLA) for high quality time-scale modification of speech, ICASSP 1993).
// Places are fractions of a frame: on whole frames a tone of 5 kHz would be spliced up to a seventeenth of its period
// off, which leaves it 30 to 40 dB clean. The top of the curve of likeness is found by a cosine through its three
// greatest values, which is exact for a tone (I. Cespedes and others: Methods for estimation of subsample time delays
// of digitized echo signals, Ultrasonic Imaging 17, 1995).
// One thread; allocates nothing.
#pragma once

#include <array>
#include <cstddef>

#include "engine/pitch/sliding_window.h"

namespace tandem {

// The places among which a splice is searched, in frames.
struct SpliceRange {
  Frames low = 0;  // the lowest place, and the highest; at most 2 * SpliceSearch::kReach apart
  Frames high = 0;
  double centre = 0.0;  // the best place in time
  float bias = 0.0F;    // by how much a place kReach from the centre must be more alike, of a correlation of -1..1
};

struct Splice {
  double place = 0.0;     // the frame that follows
  float likeness = 0.0F;  // normalised correlation of what is left and what is reached, -1..1; 0 for silence
};

class SpliceSearch {
 public:
  static constexpr Frames kOverlap = 882;  // 20 ms are compared
  static constexpr Frames kReach = 552;    // 12.5 ms
  static constexpr Frames kMargin = 12;    // frames of the window that are needed below and above what is compared

  SpliceSearch();

  // The best place to go on after frame `tail` - 1. The window holds kOverlap frames from `tail` and from every place
  // in the range, and kMargin more on either side.
  Splice best(const SlidingWindow& sound, double tail, const SpliceRange& range) noexcept;

 private:
  static constexpr std::size_t kCount = kOverlap;
  static constexpr std::size_t kCoarse = 4;  // frames that are one in the first, coarse pass
  static constexpr std::size_t kCoarseCount = kCount / kCoarse;
  static constexpr std::size_t kPlaces = 2 * static_cast<std::size_t>(kReach) / kCoarse + 1;
  static constexpr Frames kNear = 8;  // frames to either side that the second pass looks at

  // Both channels, one after the other.
  template <std::size_t N>
  using Stereo = std::array<std::array<float, N>, 2>;

  Frames coarse(const SlidingWindow& sound, Frames tail, const SpliceRange& range) noexcept;
  void score_coarsely(std::size_t places) noexcept;
  double refined(const SlidingWindow& sound, Frames tail, Frames about) noexcept;
  double top_near(const SlidingWindow& sound, Frames at, float greatest) const noexcept;
  float product(const float* left, const float* right) const noexcept;

  std::array<float, kCount> window_{};  // F. J. Harris: On the use of windows (1978), 4 terms
  Stereo<kCount> weighted_{};           // what follows the tail, under the window
  Stereo<kCoarseCount> pattern_{};
  Stereo<kCoarseCount + kPlaces> field_{};
  std::array<float, kPlaces> scores_{};
};

}  // namespace tandem

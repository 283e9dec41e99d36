// Twice as many frames a second, by a half-band filter. Half of its taps are zero: every other frame of the result is
// one that came, as it is, and only those between are computed.
// For sound that ends at a quarter of its rate (24 of 96 kHz): so much is passed within 0.001 dB, and its images are
// 130 dB down. Linear phase, 39 taps, 10 of them computed: windowed by Kaiser's window. Frame 2n of the result is frame
// n of the sound: the delay of the filter, 10 frames of what comes, is taken off.
// Method: Bellanger, Daguet and Lepagnol, "Interpolation, extrapolation, and reduction of computation speed in digital
// filters" (IEEE Trans. ASSP 22, 1974).
// One thread. Nothing here allocates, locks or throws.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "engine/core/frames.h"

namespace tandem {

class HalfbandDoubler {
 public:
  HalfbandDoubler() noexcept;

  // Where the next frames are to be written before they are doubled. Only while read() has no more to give.
  std::span<StereoFrame> input() noexcept { return std::span(recent_).subspan(kKept); }
  // Takes `count` frames of input().
  void take(std::size_t count) noexcept;
  // After the last frame: what the filter still holds comes out, and the next frame begins a new sound.
  void end() noexcept;

  // Gives what is ready; returns how many frames, fewer than `out` has when there are no more.
  std::size_t read(std::span<StereoFrame> out) noexcept;

 private:
  static constexpr std::size_t kReach = 10;  // frames to either side of one between them
  static constexpr std::size_t kKept = 2 * kReach - 1;
  static constexpr std::size_t kBlock = 128;

  StereoFrame between(std::size_t first) const noexcept;

  std::array<float, kReach> taps_;  // of the frames to either side, nearest first
  std::array<StereoFrame, kKept + kBlock> recent_{};
  std::array<StereoFrame, 2 * kBlock> doubled_;
  std::size_t from_ = 0;        // of doubled_, what is ready:
  std::size_t to_ = 0;          // up to here
  std::size_t early_ = kReach;  // frames to come before the first whose surroundings are known
};

}  // namespace tandem

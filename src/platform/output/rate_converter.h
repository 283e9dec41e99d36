// From 44100 frames a second to a device's rate, with libsoxr.
//
// Recipe: 20 bits (rejection 120 dB and more), linear phase, so that no frequency is later than another, pass band to
// 20 kHz, transition to 23.1 kHz, which lets what lies above 21 kHz leave an image above 22.05 kHz that no one can
// hear; for this the filter is half as long, and with transforms of 256 points it holds back 196 frames (4.4 ms) at
// most, where soxr's own choice holds back 924 (21 ms). Frame n of the result belongs to the moment of frame
// n * 44100 / rate of the song: the delay of the filter is taken off.
// One thread. convert() and finish() neither lock nor throw; soxr allocates while its buffers grow, at first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "engine/core/frames.h"

struct soxr;

namespace tandem {

class RateConverter {
 public:
  // Not more frames are taken whose sound is still to come: 5.8 ms; 9.1 ms at 192 kHz, which takes libsoxr a stage
  // more. For rates from 44.1 kHz up.
  static constexpr std::size_t most_held(int device_rate) noexcept { return device_rate == 192000 ? 400 : 256; }

  // Throws std::runtime_error if soxr refuses the rate or has no memory.
  explicit RateConverter(int device_rate);
  ~RateConverter();
  RateConverter(const RateConverter&) = delete;
  RateConverter& operator=(const RateConverter&) = delete;

  struct Moved {
    std::size_t taken = 0;  // of `in`
    std::size_t made = 0;   // in `out`
    bool failed = false;    // libsoxr has run out of memory: this converter is of no use any more
  };
  // Takes what it needs to fill `out`, as far as there is.
  Moved convert(std::span<const StereoFrame> in, std::span<StereoFrame> out) noexcept;
  // After the last frame: the rest of the sound; returns how many frames, 0 when there are no more. From then on
  // convert() begins with a new sound.
  std::size_t finish(std::span<StereoFrame> out) noexcept;

 private:
  struct Release {
    void operator()(soxr* converter) const noexcept;
  };

  std::unique_ptr<soxr, Release> converter_;
};

}  // namespace tandem

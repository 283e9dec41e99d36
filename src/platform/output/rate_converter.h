// From 44100 frames a second to a device's rate, with libsoxr.
//
// Recipe: 20 bits (rejection 120 dB and more), linear phase, so that no frequency is later than another, pass band to
// 20 kHz, transition to 23.1 kHz, which lets what lies above 21 kHz leave an image above 22.05 kHz that no one can
// hear; for this the filter is half as long, and with transforms of 256 points it holds back 196 frames (4.4 ms) at
// most up to 176.4 kHz, 219 (5.0 ms) at 352.8 and 217 (4.9 ms) at 384, where soxr's own choice holds back 924 (21 ms).
// 192 kHz, for which libsoxr takes a stage more (8.7 ms), is twice 96 kHz by HalfbandDoubler (4.5 ms).
// To a device a little slower than the song the same transition ends lower, so that nothing is mirrored to below
// 21 kHz, and at half its rate at the lowest: 44 kHz gets 19.9 kHz, 37.8 kHz gets 15.8 (4.4 ms). To 33.075 kHz and less
// (headsets in a call) the transition is the upper quarter of what they can play: from 22.05 kHz on that holds back
// 4.7 ms at most, below it libsoxr needs a stage more (9.5 ms) or two (8 kHz: 19 ms).
// Frame n of the result belongs to the moment of frame n * 44100 / rate of the song: the delay of the filter is taken
// off. One thread. convert() and finish() neither lock nor throw; soxr allocates while its buffers grow, at first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "engine/core/frames.h"
#include "platform/output/halfband_doubler.h"

struct soxr;

namespace tandem {

class RateConverter {
 public:
  // Not more frames are taken whose sound is still to come: 5.8 ms, or 20 ms for a device below 22.05 kHz.
  static constexpr std::size_t most_held(int device_rate) noexcept { return device_rate < 22050 ? 882 : 256; }

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

  Moved resample(std::span<const StereoFrame> in, std::span<StereoFrame> out) noexcept;
  std::size_t finish_resampling(std::span<StereoFrame> out) noexcept;

  std::unique_ptr<soxr, Release> converter_;
  std::optional<HalfbandDoubler> doubler_;  // where libsoxr converts to half the device's rate
};

}  // namespace tandem

// Where the frames of an MPEG stream of constant bit rate lie, by calculation.
//
// A frame of s samples holds s * bit rate / (8 * sample rate) bytes on average; encoders pad single frames by one slot
// so that no frame begins a whole slot away from there (ISO/IEC 11172-3, 2.4.3.1). Streams of which no frame is padded
// are known too. Used by one thread at a time.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "engine/decode/mp3_frame_scanner.h"

namespace tandem {

class Mp3ConstantRate {
 public:
  static constexpr std::size_t kLeastFrames = 16;  // before which nothing is concluded

  // Every frame that is found, in order; and that the next one does not follow directly on the one before.
  void add(const Mp3Frame& frame) noexcept;
  void add_gap() noexcept { constant_ = false; }

  // All frames so far are of one bit rate and follow each other directly.
  bool holds() const noexcept { return constant_ && frames_ >= kLeastFrames; }
  const MpegHeader& header() const noexcept { return header_; }

  // Bytes from the beginning of a frame to the beginning of the `frames`th after it: one of these two.
  std::array<std::int64_t, 2> distances(std::int64_t frames) const noexcept;
  // How many frames begin within `bytes` from the beginning of one.
  std::int64_t frames_within(std::int64_t bytes) const noexcept;

 private:
  MpegHeader header_;
  std::size_t frames_ = 0;
  bool padded_ = false;
  bool constant_ = true;
};

}  // namespace tandem

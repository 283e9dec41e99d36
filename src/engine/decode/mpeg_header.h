// The four-byte header of an MPEG audio frame (ISO/IEC 11172-3 and 13818-3, and the unofficial MPEG 2.5).
// Any thread; pure functions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace tandem {

struct MpegHeader {
  static constexpr std::size_t kBytes = 4;
  static constexpr int kLongestFrame = 3456;  // bytes, what a decoder must be ready for in free format

  std::uint32_t bits = 0;
  int layer = 0;          // 1, 2 or 3
  bool low_rate = false;  // MPEG 2 or 2.5
  int rate = 0;           // Hz
  int bit_rate = 0;       // bit/s; 0 in free format
  int channels = 0;       // 1 or 2
  bool has_checksum = false;
  int samples = 0;  // of one channel, in one frame
  int padding = 0;  // bytes that this frame is longer than the format's base size
  int bytes = 0;    // of the whole frame; 0 in free format, where only the distance to the next header shows it

  bool free_format() const noexcept { return bytes == 0; }
  int slot_bytes() const noexcept { return layer == 1 ? 4 : 1; }  // what padding adds
  int side_info_bytes() const noexcept;                           // in a frame of Layer III
};

// nullopt if the four bytes are no header.
std::optional<MpegHeader> parse_mpeg_header(const std::uint8_t* bytes) noexcept;

// Whether two headers may stand in one stream: same MPEG version, layer and rate, both or none in free format.
// Bit rate and channel mode may change from frame to frame.
bool same_stream(const MpegHeader& a, const MpegHeader& b) noexcept;
// The same, and the bit rate too.
bool same_bit_rate(const MpegHeader& a, const MpegHeader& b) noexcept;

}  // namespace tandem

// The information frame with which encoders begin a stream: "Xing" or "Info" with the LAME extension, or "VBRI".
// It carries no sound. Any thread; pure functions.
// Layout: Xing Technology, "VBR header SDK" (1999), for mark, flags, frames, bytes, seek table and quality; G.
// Bouvigne, "MP3 info tag", revision 1 (LAME), for what follows: encoder's name, delay and padding, checksum.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "engine/decode/mpeg_header.h"

namespace tandem {

struct Mp3Info {
  std::int64_t frames = 0;  // that follow the information frame; 0 if absent
  std::int64_t bytes = 0;   // of the stream with the information frame; 0 if absent
  bool has_edges = false;   // whether the next two are there
  int encoder_delay = 0;    // samples that the encoder added in front, without the decoder's own delay
  int encoder_padding = 0;  // samples that it added at the end, the decoder's own delay included
  bool intact = false;      // the frame's checksum is there and right
};

// What a decoder of Layer III adds in front, in samples.
inline constexpr int kLayer3Delay = 529;

// nullopt if `frame`, the first of its stream, is an ordinary frame.
std::optional<Mp3Info> parse_mp3_info(const MpegHeader& header, std::span<const std::uint8_t> frame) noexcept;

}  // namespace tandem

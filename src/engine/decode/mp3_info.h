// The information frame with which encoders begin a stream: "Xing" or "Info" with the LAME extension, or "VBRI".
// It carries no sound. Any thread; pure functions.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "engine/decode/mpeg_header.h"

namespace tandem {

struct Mp3Info {
  std::int64_t frames = 0;  // that follow the information frame; 0 if not told
  std::int64_t bytes = 0;   // of the stream with the information frame; 0 if not told
  bool has_edges = false;   // the encoder told how many samples it added:
  int delay = 0;            //   in front (the decoder's own delay is not counted)
  int padding = 0;          //   behind (the decoder's own delay is counted)
  bool intact = false;      // the frame's checksum is there and right
};

// What a decoder of Layer III adds in front, in samples.
inline constexpr int kLayer3Delay = 529;

// nullopt if `frame`, the first of its stream, is an ordinary frame.
std::optional<Mp3Info> parse_mp3_info(const MpegHeader& header, std::span<const std::uint8_t> frame) noexcept;

}  // namespace tandem

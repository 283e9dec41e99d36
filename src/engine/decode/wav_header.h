// Where the sound of a WAV file lies and how it is encoded: RIFF, RIFX, RF64, BW64 and W64.
// Formats: Microsoft and IBM, "Resource Interchange File Format" (1991), for RIFF and RIFX; EBU Tech 3306 for RF64;
// ITU-R BS.2088 for BW64; Sonic Foundry, "Wave64" (2003), for W64; Microsoft's WAVEFORMATEXTENSIBLE for the channel
// mask.
//
// Any thread; blocks for as long as the disk does.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "engine/decode/song_file.h"

namespace tandem {

struct WavHeader {
  static constexpr std::uint16_t kMpegTag = 0x50;
  static constexpr std::uint16_t kMp3Tag = 0x55;

  bool big_endian = false;
  std::vector<std::uint8_t> format;  // the format chunk's content, as it is in the file
  std::uint16_t format_tag = 0;      // of the encoding; of the sub-format where the format is an extensible one
  int channels = 0;
  int rate = 0;                    // Hz
  int block_frames = 0;            // frames in a block of a compressed encoding; 0 if absent
  std::uint32_t channel_mask = 0;  // one bit for each channel's place; 0 if absent
  std::int64_t fact_frames = 0;    // by the fact chunk; 0 if absent
  std::int64_t data_begin = 0;     // offsets in the file, as far as there is data
  std::int64_t data_end = 0;
};

// Whether a WAV file begins at `offset`.
bool is_wav(const SongFile& file, std::int64_t offset) noexcept;

// nullopt if format or data are missing or make no sense. Sizes that lie are replaced by what is there: the sound goes
// on to the end of the file where its size is 0 with sound after it (a recording that was cut off), unknown, too large,
// or too small by a multiple of 4 GiB (a size of 32 bits that wrapped).
std::optional<WavHeader> read_wav_header(const SongFile& file, std::int64_t offset);

}  // namespace tandem

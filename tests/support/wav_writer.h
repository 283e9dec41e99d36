// Writes WAV files of uncompressed sound, chunk by chunk, so that a test can break any of them.
#pragma once

#include <cstdint>
#include <string>

#include "support/bytes.h"
#include "support/signal.h"

namespace tandem::test {

enum class Encoding { kInt8, kInt16, kInt24, kInt32, kFloat32, kFloat64 };

Bytes encode(const Samples& samples, Encoding encoding, bool big_endian = false);

// The content of a format chunk; `channel_mask` other than 0 makes it an extensible one.
Bytes wav_format(const Signal& signal, Encoding encoding, std::uint32_t channel_mask = 0, bool big_endian = false);

// A chunk with its padding; `size` is what the header of wav_chunk_saying() says.
Bytes wav_chunk_saying(const std::string& name, const Bytes& content, std::uint64_t size, bool big_endian = false);
Bytes wav_chunk(const std::string& name, const Bytes& content, bool big_endian = false);

// "RIFF" (or what `family` says), size, "WAVE", chunks.
Bytes wav_file(const Bytes& chunks, const std::string& family = "RIFF", bool big_endian = false);

// A whole file as it should be.
Bytes wav_file(const Signal& signal, Encoding encoding);

}  // namespace tandem::test

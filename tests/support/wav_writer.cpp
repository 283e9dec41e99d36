#include "support/wav_writer.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace tandem::test {
namespace {

unsigned sample_bytes(Encoding encoding) {
  switch (encoding) {
    case Encoding::kInt8:
      return 1;
    case Encoding::kInt16:
      return 2;
    case Encoding::kInt24:
      return 3;
    case Encoding::kInt32:
    case Encoding::kFloat32:
      return 4;
    case Encoding::kFloat64:
      return 8;
  }
  return 0;
}

bool is_float(Encoding encoding) { return encoding == Encoding::kFloat32 || encoding == Encoding::kFloat64; }

std::uint64_t to_integer(double sample, unsigned bytes) {
  const double scale = std::ldexp(1.0, static_cast<int>(8 * bytes - 1));
  const auto value = static_cast<std::int64_t>(std::clamp(std::round(sample * scale), -scale, scale - 1.0));
  return static_cast<std::uint64_t>(bytes == 1 ? value + 128 : value);
}

std::uint64_t to_bits(double sample, Encoding encoding) {
  if (encoding == Encoding::kFloat32) return std::bit_cast<std::uint32_t>(static_cast<float>(sample));
  if (encoding == Encoding::kFloat64) return std::bit_cast<std::uint64_t>(sample);
  return to_integer(sample, sample_bytes(encoding));
}

}  // namespace

Bytes encode(const Samples& samples, Encoding encoding, bool big_endian) {
  const unsigned size = sample_bytes(encoding);
  Bytes bytes;
  bytes.reserve(samples.size() * size);
  for (const double sample : samples) {
    const std::uint64_t bits = to_bits(sample, encoding);
    for (unsigned i = 0; i < size; ++i) {
      bytes.push_back(static_cast<std::uint8_t>(bits >> 8 * (big_endian ? size - 1 - i : i) & 0xFFU));
    }
  }
  return bytes;
}

Bytes wav_format(const Signal& signal, Encoding encoding, std::uint32_t channel_mask, bool big_endian) {
  const auto number = [&](std::uint64_t value, unsigned count) { return number_bytes(value, count, big_endian); };
  const unsigned size = sample_bytes(encoding);
  const auto channels = static_cast<unsigned>(signal.channels);
  const auto rate = static_cast<unsigned>(signal.rate);
  const unsigned tag = is_float(encoding) ? 3 : 1;
  const Bytes common = number(channels, 2) + number(rate, 4) + number(std::uint64_t{rate} * channels * size, 4) +
                       number(std::uint64_t{channels} * size, 2) + number(std::uint64_t{8} * size, 2);
  if (channel_mask == 0) return number(tag, 2) + common;
  const Bytes guid_tail = {0x00, 0x00, 0x00, 0x00, 0x10, 0x00, 0x80, 0x00, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71};
  return number(0xFFFE, 2) + common + number(22, 2) + number(std::uint64_t{8} * size, 2) + number(channel_mask, 4) +
         number(tag, 2) + guid_tail;
}

Bytes wav_chunk_saying(const std::string& name, const Bytes& content, std::uint64_t size, bool big_endian) {
  const Bytes padding(content.size() % 2);
  return text_bytes(name) + number_bytes(size, 4, big_endian) + content + padding;
}

Bytes wav_chunk(const std::string& name, const Bytes& content, bool big_endian) {
  return wav_chunk_saying(name, content, content.size(), big_endian);
}

Bytes wav_file(const Bytes& chunks, const std::string& family, bool big_endian) {
  return text_bytes(family) + number_bytes(chunks.size() + 4, 4, big_endian) + text_bytes("WAVE") + chunks;
}

Bytes wav_file(const Signal& signal, Encoding encoding) {
  return wav_file(wav_chunk("fmt ", wav_format(signal, encoding)) +
                  wav_chunk("data", encode(signal.samples, encoding)));
}

}  // namespace tandem::test

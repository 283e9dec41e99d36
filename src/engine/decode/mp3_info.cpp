#include "engine/decode/mp3_info.h"

#include <cstring>
#include <string_view>

namespace tandem {
namespace {

constexpr std::size_t kVbriAt = 36;  // always after 32 bytes of side information
constexpr std::size_t kTocBytes = 100;
constexpr std::size_t kExtensionBytes = 36;  // of LAME: from the encoder's name to the checksum
constexpr std::size_t kEdgesAt = 21;         // in it: 12 bits of delay, 12 bits of padding

std::uint32_t big_endian(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t count) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < count; ++i) value = value << 8U | bytes[at + i];
  return value;
}

bool has_text(std::span<const std::uint8_t> bytes, std::size_t at, std::string_view text) {
  return at + text.size() <= bytes.size() && std::memcmp(bytes.data() + at, text.data(), text.size()) == 0;
}

// CRC-16 with the polynomial 0x8005, least significant bit first.
std::uint32_t checksum(std::span<const std::uint8_t> bytes) {
  std::uint32_t crc = 0;
  for (const std::uint8_t byte : bytes) {
    crc ^= byte;
    for (int bit = 0; bit < 8; ++bit) crc = (crc & 1U) != 0 ? crc >> 1U ^ 0xA001U : crc >> 1U;
  }
  return crc;
}

void parse_extension(std::span<const std::uint8_t> frame, std::size_t at, Mp3Info& info) {
  if (at + kExtensionBytes > frame.size() || frame[at] < ' ') return;
  const std::uint32_t edges = big_endian(frame, at + kEdgesAt, 3);
  info.encoder_delay = static_cast<int>(edges >> 12U);
  info.encoder_padding = static_cast<int>(edges & 0xFFFU);
  info.has_edges = edges != 0;
  const std::size_t checked = at + kExtensionBytes - 2;
  info.intact = checksum(frame.first(checked)) == big_endian(frame, checked, 2);
}

Mp3Info parse_xing(std::span<const std::uint8_t> frame, std::size_t at) {
  Mp3Info info;
  const std::uint32_t fields = at + 8 <= frame.size() ? big_endian(frame, at + 4, 4) : 0;
  at += 8;
  const auto number = [&](std::uint32_t field) {
    if ((fields & field) == 0 || at + 4 > frame.size()) return std::uint32_t{0};
    at += 4;
    return big_endian(frame, at - 4, 4);
  };
  info.frames = number(1);
  info.bytes = number(2);
  if ((fields & 4U) != 0) at += kTocBytes;
  if ((fields & 8U) != 0) at += 4;
  parse_extension(frame, at, info);
  return info;
}

}  // namespace

std::optional<Mp3Info> parse_mp3_info(const MpegHeader& header, std::span<const std::uint8_t> frame) noexcept {
  if (header.layer != 3) return std::nullopt;
  const std::size_t plain = MpegHeader::kBytes + static_cast<std::size_t>(header.side_info_bytes());
  for (const std::size_t at : {plain, plain + 2}) {  // some encoders leave room for the frame's own checksum
    if (has_text(frame, at, "Xing") || has_text(frame, at, "Info")) return parse_xing(frame, at);
  }
  if (has_text(frame, kVbriAt, "VBRI")) return Mp3Info{};
  return std::nullopt;
}

}  // namespace tandem

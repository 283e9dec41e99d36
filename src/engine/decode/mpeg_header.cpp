#include "engine/decode/mpeg_header.h"

#include <array>

namespace tandem {
namespace {

using RateRow = std::array<int, 15>;  // kbit/s by bit rate index

constexpr RateRow kLayer1 = {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448};
constexpr RateRow kLayer2 = {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384};
constexpr RateRow kLayer3 = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
constexpr RateRow kLowLayer1 = {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256};
constexpr RateRow kLowLayer23 = {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};
constexpr std::array<int, 3> kRates = {44100, 48000, 32000};

constexpr std::uint32_t kSyncMask = 0xFFE00000U;
constexpr std::uint32_t kStreamMask = 0xFFFE0C00U;  // sync, version, layer, rate
constexpr std::uint32_t kBitRateMask = 0x0000F000U;
constexpr std::uint32_t kMpeg25 = 0U;
constexpr std::uint32_t kMpeg1 = 3U;

int kilobits_of(const MpegHeader& header) {
  const std::size_t index = (header.bits >> 12U) & 15U;
  if (header.layer == 1) return (header.low_rate ? kLowLayer1 : kLayer1).at(index);
  if (header.low_rate) return kLowLayer23.at(index);
  return (header.layer == 2 ? kLayer2 : kLayer3).at(index);
}

int samples_of(const MpegHeader& header) {
  if (header.layer == 1) return 384;
  return header.layer == 3 && header.low_rate ? 576 : 1152;
}

void measure(MpegHeader& header) {
  const int slot = header.slot_bytes();
  header.samples = samples_of(header);
  header.padding = (header.bits & 0x200U) != 0 ? slot : 0;
  header.bit_rate = kilobits_of(header) * 1000;
  if (header.bit_rate == 0) return;
  header.bytes = header.samples / (8 * slot) * header.bit_rate / header.rate * slot + header.padding;
}

}  // namespace

std::optional<MpegHeader> parse_mpeg_header(const std::uint8_t* bytes) noexcept {
  MpegHeader header;
  header.bits =
      std::uint32_t{bytes[0]} << 24U | std::uint32_t{bytes[1]} << 16U | std::uint32_t{bytes[2]} << 8U | bytes[3];
  const std::uint32_t version = (header.bits >> 19U) & 3U;
  const std::uint32_t layer = (header.bits >> 17U) & 3U;
  const std::uint32_t rate = (header.bits >> 10U) & 3U;
  if ((header.bits & kSyncMask) != kSyncMask || version == 1U || layer == 0U || rate == 3U) return std::nullopt;
  if (((header.bits >> 12U) & 15U) == 15U) return std::nullopt;
  header.layer = 4 - static_cast<int>(layer);
  header.low_rate = version != kMpeg1;
  header.rate = kRates.at(rate) / (version == kMpeg1 ? 1 : version == kMpeg25 ? 4 : 2);
  header.channels = ((header.bits >> 6U) & 3U) == 3U ? 1 : 2;
  header.has_checksum = (header.bits & 0x10000U) == 0;
  measure(header);
  return header;
}

bool same_stream(const MpegHeader& a, const MpegHeader& b) noexcept {
  return ((a.bits ^ b.bits) & kStreamMask) == 0 && a.free_format() == b.free_format();
}

bool same_bit_rate(const MpegHeader& a, const MpegHeader& b) noexcept {
  return ((a.bits ^ b.bits) & (kStreamMask | kBitRateMask)) == 0;
}

int MpegHeader::side_info_bytes() const noexcept {
  if (low_rate) return channels == 1 ? 9 : 17;
  return channels == 1 ? 17 : 32;
}

}  // namespace tandem

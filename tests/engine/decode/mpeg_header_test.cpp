#include "engine/decode/mpeg_header.h"

#include <gtest/gtest.h>

#include <array>

namespace tandem {
namespace {

std::optional<MpegHeader> parse(std::uint32_t bits) {
  const std::array<std::uint8_t, 4> bytes = {static_cast<std::uint8_t>(bits >> 24U),
                                             static_cast<std::uint8_t>(bits >> 16U),
                                             static_cast<std::uint8_t>(bits >> 8U), static_cast<std::uint8_t>(bits)};
  return parse_mpeg_header(bytes.data());
}

struct Expected {
  std::uint32_t bits;
  int layer;
  int rate;
  int channels;
  int samples;
  int bytes;
};

TEST(MpegHeader, SizesOfAllVersionsAndLayers) {
  constexpr std::array<Expected, 9> kHeaders = {{
      {0xFFFB9064, 3, 44100, 2, 1152, 417},   // MPEG 1 Layer III, 128 kbit/s
      {0xFFFB9264, 3, 44100, 2, 1152, 418},   // with padding
      {0xFFFBE464, 3, 48000, 2, 1152, 960},   // 320 kbit/s
      {0xFFF380C4, 3, 22050, 1, 576, 208},    // MPEG 2 Layer III, 64 kbit/s
      {0xFFE318C4, 3, 8000, 1, 576, 72},      // MPEG 2.5 Layer III, 8 kbit/s
      {0xFFFDE804, 2, 32000, 2, 1152, 1728},  // MPEG 1 Layer II, 384 kbit/s
      {0xFFF58404, 2, 24000, 2, 1152, 384},   // MPEG 2 Layer II, 64 kbit/s
      {0xFFFF40C0, 1, 44100, 1, 384, 136},    // MPEG 1 Layer I, 128 kbit/s
      {0xFFFF42C0, 1, 44100, 1, 384, 140},    // with padding, which is four bytes here
  }};
  for (const Expected& expected : kHeaders) {
    const auto header = parse(expected.bits);
    ASSERT_TRUE(header) << std::hex << expected.bits;
    EXPECT_EQ(header->layer, expected.layer) << std::hex << expected.bits;
    EXPECT_EQ(header->rate, expected.rate) << std::hex << expected.bits;
    EXPECT_EQ(header->channels, expected.channels) << std::hex << expected.bits;
    EXPECT_EQ(header->samples, expected.samples) << std::hex << expected.bits;
    EXPECT_EQ(header->bytes, expected.bytes) << std::hex << expected.bits;
  }
}

TEST(MpegHeader, RefusesWhatIsNone) {
  EXPECT_FALSE(parse(0xFFDB9064));  // sync broken
  EXPECT_FALSE(parse(0xFFEB9064));  // reserved version
  EXPECT_FALSE(parse(0xFFF99064));  // reserved layer
  EXPECT_FALSE(parse(0xFFFBF064));  // bad bit rate
  EXPECT_FALSE(parse(0xFFFB9C64));  // reserved rate
}

TEST(MpegHeader, StreamsMayChangeBitRateAndMode) {
  const auto header = parse(0xFFFB9064);
  EXPECT_TRUE(same_stream(*header, *parse(0xFFFBE0C4)));   // bit rate, mono
  EXPECT_TRUE(same_stream(*header, *parse(0xFFFA9064)));   // with checksum
  EXPECT_FALSE(same_stream(*header, *parse(0xFFFB9464)));  // rate
  EXPECT_FALSE(same_stream(*header, *parse(0xFFF39064)));  // version
  EXPECT_FALSE(same_stream(*header, *parse(0xFFFD9064)));  // layer
  EXPECT_FALSE(same_stream(*header, *parse(0xFFFB0064)));  // free format
}

}  // namespace
}  // namespace tandem

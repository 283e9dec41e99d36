#include "engine/decode/wav_header.h"

#include <gtest/gtest.h>

#include "engine/decode/song_file_fixture.h"
#include "engine/decode/wav_view.h"
#include "support/wav_writer.h"

namespace tandem::test {
namespace {

class WavHeaders : public SongFileTest {
 protected:
  std::optional<WavHeader> header(const Bytes& content, std::int64_t offset = 0) {
    const auto opened = file(content);
    return is_wav(*opened, offset) ? read_wav_header(*opened, offset) : std::nullopt;
  }
  static Signal song() { return tones(0.1, 500.0, 0.5, 48000); }
};

TEST_F(WavHeaders, SayHowTheSoundIsEncodedAndWhereItLies) {
  const Bytes content = wav_file(song(), Encoding::kInt24);
  const auto found = header(content);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->format_tag, 1);
  EXPECT_EQ(found->channels, 2);
  EXPECT_EQ(found->rate, 48000);
  EXPECT_EQ(found->channel_mask, 0U);
  EXPECT_EQ(found->data_begin, 44);
  EXPECT_EQ(found->data_end, static_cast<std::int64_t>(content.size()));
}

TEST_F(WavHeaders, OfTheExtensibleFormatHaveTheSubFormatAndTheMask) {
  const Bytes format = wav_chunk("fmt ", wav_format(song(), Encoding::kFloat32, 0x600));
  const auto found = header(wav_file(format + wav_chunk("data", encode(song().samples, Encoding::kFloat32))));
  ASSERT_TRUE(found);
  EXPECT_EQ(found->format_tag, 3);
  EXPECT_EQ(found->channel_mask, 0x600U);
}

TEST_F(WavHeaders, MayStandAnywhereInTheFile) {
  const auto found = header(Bytes(1000, 7) + wav_file(song(), Encoding::kInt16), 1000);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->data_begin, 1044);
}

TEST_F(WavHeaders, WithoutFormatOrSoundAreNone) {
  const Bytes format = wav_chunk("fmt ", wav_format(song(), Encoding::kInt16));
  EXPECT_FALSE(header(wav_file(format)));
  EXPECT_FALSE(header(wav_file(wav_chunk("data", Bytes(400)))));
  EXPECT_FALSE(header(random_bytes(3000, 9)));
  EXPECT_FALSE(header({}));
}

// The plain file that the library is given: a short head, then the sound as it lies in the file.
TEST_F(WavHeaders, AreReplacedByAPlainOneForTheLibrary) {
  const Bytes sound = encode(song().samples, Encoding::kInt16);
  const Bytes format = wav_chunk("fmt ", wav_format(song(), Encoding::kInt16));
  const Bytes content =
      wav_file(wav_chunk("LIST", Bytes(3000, 1)) + format + wav_chunk_saying("data", sound, 0xFFFFFFFF));
  const auto found = header(content);
  ASSERT_TRUE(found);
  WavView view(file(content), *found);
  Bytes seen(static_cast<std::size_t>(view.size()) + 100);
  ASSERT_EQ(view.read(seen.data(), static_cast<std::int64_t>(seen.size())), view.size());
  seen.resize(static_cast<std::size_t>(view.size()));
  EXPECT_EQ(seen, wav_file(song(), Encoding::kInt16));
  EXPECT_EQ(view.read(seen.data(), 1), 0);
  EXPECT_EQ(view.seek(-2, SEEK_END), view.size() - 2);
  EXPECT_EQ(view.read(seen.data(), 10), 2);
  EXPECT_EQ(Bytes(seen.begin(), seen.begin() + 2), slice(sound, sound.size() - 2, sound.size()));
  EXPECT_EQ(view.seek(40, SEEK_SET), 40);
  EXPECT_EQ(view.seek(-1000, SEEK_CUR), 0);
}

}  // namespace
}  // namespace tandem::test

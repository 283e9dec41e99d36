// How the frames of an MPEG stream are found and where they are kept: the scanner, the table, tags and the information
// frame, each for itself.
#include <gtest/gtest.h>

#include "engine/decode/mp3_frame_scanner.h"
#include "engine/decode/mp3_frame_table.h"
#include "engine/decode/mp3_info.h"
#include "engine/decode/mp3_tags.h"
#include "engine/decode/song_file_fixture.h"
#include "support/mp3_maker.h"

namespace tandem::test {
namespace {

class Mp3Frames : public SongFileTest {
 protected:
  std::vector<Mp3Frame> frames_of(const Bytes& content) {
    const auto song = file(content);
    Mp3FrameScanner scanner(song, 0, song->size());
    std::vector<Mp3Frame> frames;
    while (!scanner.ended()) {
      if (const auto frame = scanner.step()) frames.push_back(*frame);
    }
    return frames;
  }
  static const Bytes& varying() {
    static const Bytes song = make_mp3(music(6.0), {"-V3", "-t"});
    return song;
  }
};

using Mp3FrameScannerTest = Mp3Frames;
using Mp3FrameTableTest = Mp3Frames;
using Mp3TagsTest = Mp3Frames;
using Mp3InfoTest = Mp3Frames;

TEST_F(Mp3FrameScannerTest, FindsFrameAfterFrameToTheEnd) {
  const auto frames = frames_of(varying());
  ASSERT_GT(frames.size(), 200U);
  std::int64_t offset = 0;
  for (const Mp3Frame& frame : frames) {
    EXPECT_EQ(frame.offset, offset);
    offset += frame.bytes;
  }
  EXPECT_EQ(offset, static_cast<std::int64_t>(varying().size()));
}

TEST_F(Mp3FrameScannerTest, TakesBoundedStepsThroughGarbage) {
  const Bytes content = varying() + Bytes(1'000'000) + varying();
  const auto song = file(content);
  Mp3FrameScanner scanner(song, 0, song->size());
  std::size_t found = 0;
  std::int64_t before = 0;
  while (!scanner.ended()) {
    if (scanner.step()) ++found;
    EXPECT_LE(scanner.offset() - before, Mp3FrameScanner::kSearchStep);
    before = scanner.offset();
  }
  EXPECT_EQ(found, 2 * frames_of(varying()).size());
}

TEST_F(Mp3FrameScannerTest, GoesOnAtAFrameOfTheSameBitRateOnly) {
  const auto song = file(make_mp3(music(6.0), {"-b", "128", "-t"}));
  const auto frames = frames_of(make_mp3(music(6.0), {"-b", "128", "-t"}));
  Mp3FrameScanner scanner(song, 0, song->size());
  EXPECT_TRUE(scanner.go_on_at(frames[100].offset, frames[0].header));
  EXPECT_EQ(scanner.step()->offset, frames[100].offset);
  EXPECT_FALSE(scanner.go_on_at(frames[120].offset + 1, frames[0].header));
  EXPECT_FALSE(scanner.go_on_at(frames[120].offset, frames_of(varying())[0].header));
  EXPECT_EQ(scanner.step()->offset, frames[101].offset);
}

TEST_F(Mp3FrameTableTest, KnowsEveryPlaceFromOneOfSixtyFour) {
  const auto frames = frames_of(varying());
  Mp3FrameTable table;
  for (const Mp3Frame& frame : frames) table.add(frame, table.size() == 0);
  const auto song = file(varying());
  ByteWindow window(song, song->size());
  for (std::size_t step = 0; step < frames.size(); ++step) {
    const std::size_t frame = step * 97 % frames.size();  // in no order
    const auto place = table.place(frame, window);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->offset, frames[frame].offset) << frame;
    EXPECT_EQ(place->bytes, frames[frame].bytes) << frame;
  }
  EXPECT_EQ(table.run_of(frames.size() - 1).first, 0U);
  EXPECT_LE(table.memory_bytes(), 16 * (frames.size() / 32 + 2));
}

TEST_F(Mp3FrameTableTest, LostFramesHaveNoBytesAndBreakTheRun) {
  const auto frames = frames_of(varying());
  Mp3FrameTable table;
  for (std::size_t i = 0; i < 10; ++i) table.add(frames[i], i == 0);
  table.add_lost(1000);
  for (std::size_t i = 10; i < 20; ++i) table.add(frames[i], false);
  const auto song = file(varying());
  ByteWindow window(song, song->size());
  EXPECT_EQ(table.size(), 1020U);
  EXPECT_EQ(table.place(500, window)->bytes, 0);
  EXPECT_EQ(table.place(1012, window)->offset, frames[12].offset);
  EXPECT_EQ(table.run_of(9).first, 0U);
  EXPECT_EQ(table.run_of(1015).first, 1010U);
}

TEST_F(Mp3FrameTableTest, APlaceThatCannotBeReadAnyMoreIsNone) {
  const auto frames = frames_of(varying());
  Mp3FrameTable table;
  for (const Mp3Frame& frame : frames) table.add(frame, table.size() == 0);
  const auto cut = file(slice(varying(), 0, varying().size() / 2));
  ByteWindow window(cut, cut->size());
  EXPECT_TRUE(table.place(10, window));
  EXPECT_FALSE(table.place(frames.size() - 10, window));
}

TEST_F(Mp3TagsTest, AreSkippedInFrontAndTrimmedAtTheEnd) {
  const Bytes front = make_id3v2(2000) + make_ape();
  const Bytes back = make_lyrics3() + make_ape() + make_id3v1();
  const auto song = file(front + varying() + back);
  ByteWindow window(song, song->size());
  EXPECT_EQ(skip_tags(window, 0), static_cast<std::int64_t>(front.size()));
  EXPECT_EQ(trim_tags(*song, 0, song->size()), static_cast<std::int64_t>(front.size() + varying().size()));
  EXPECT_EQ(skip_tags(window, static_cast<std::int64_t>(front.size())), static_cast<std::int64_t>(front.size()));
}

TEST_F(Mp3InfoTest, HoldsCountsDelayAndPadding) {
  const Bytes song = make_mp3(music(6.0), {"-V3"});
  const auto header = parse_mpeg_header(song.data());
  ASSERT_TRUE(header);
  const auto info = parse_mp3_info(*header, std::span(song).first(static_cast<std::size_t>(header->bytes)));
  ASSERT_TRUE(info);
  EXPECT_TRUE(info->intact);
  EXPECT_EQ(info->bytes, static_cast<std::int64_t>(song.size()));
  EXPECT_EQ(info->frames, static_cast<std::int64_t>(frames_of(song).size()) - 1);
  EXPECT_EQ(info->encoder_delay, 576);
  EXPECT_EQ(info->frames * 1152 - info->encoder_delay - info->encoder_padding, 6 * 44100);
}

TEST_F(Mp3InfoTest, IsNotSeenInAnOrdinaryFrame) {
  const auto header = parse_mpeg_header(varying().data());
  EXPECT_FALSE(parse_mp3_info(*header, std::span(varying()).first(static_cast<std::size_t>(header->bytes))));
}

TEST(Mp3ConstantRate, HoldsAfterSixteenFramesOfOneBitRate) {
  Mp3ConstantRate rate;
  const std::vector<std::uint8_t> bytes = {0xFF, 0xFB, 0x90, 0x64};  // 128 kbit/s at 44.1 kHz
  const std::vector<std::uint8_t> padded = {0xFF, 0xFB, 0x92, 0x64};
  const std::vector<std::uint8_t> other = {0xFF, 0xFB, 0xB0, 0x64};
  for (int i = 0; i < 16; ++i) {
    EXPECT_FALSE(rate.holds());
    rate.add({0, 417, *parse_mpeg_header(i == 3 ? padded.data() : bytes.data())});
  }
  EXPECT_TRUE(rate.holds());
  EXPECT_EQ(rate.distances(49), (std::array<std::int64_t, 2>{20480, 20481}));
  EXPECT_EQ(rate.distances(1), (std::array<std::int64_t, 2>{417, 418}));
  EXPECT_EQ(rate.frames_within(20480), 49);
  rate.add({0, 626, *parse_mpeg_header(other.data())});
  EXPECT_FALSE(rate.holds());
}

}  // namespace
}  // namespace tandem::test

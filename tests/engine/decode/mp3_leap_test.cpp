// Seeks far into MPEG files of constant bit rate: the frames between are passed over by calculation, and the seek lands
// on the exact frame all the same.
#include <gtest/gtest.h>

#include <map>

#include "engine/decode/mp3_index.h"
#include "support/mp3_maker.h"
#include "support/short_runs.h"
#include "support/song_check.h"

namespace tandem::test {
namespace {

constexpr float kLeapRounding = 1e-6F;  // sums of what was decoded before may round otherwise: -120 dB

class Mp3Leap : public testing::Test {
 protected:
  std::shared_ptr<const SongFile> file(const Bytes& content) {
    write_file(directory_.file("song"), content);
    return SongFile::open(directory_.file("song"));
  }
  // How many frames an index that seeks to `frame` has been through one by one.
  std::size_t walked(const Bytes& content, std::size_t frame) {
    std::size_t steps = 0;
    const auto song = file(content);
    const auto index = Mp3Index::open(song, 0, song->size(), [&steps](std::int64_t) {
      ++steps;
      return true;
    });
    EXPECT_TRUE(index->leap_to(frame));
    return steps;
  }
  // Each seek on a song that has just been opened, and knows nothing of the file.
  void expect_exact_seeks(const Bytes& content, float tolerance) {
    file(content);
    const Sound whole = read_all(*SongSource::open(directory_.file("song")));
    for (const double part : {0.5, 0.75, 0.9, 0.99, 0.9999}) {
      const auto frame = static_cast<Frames>(part * static_cast<double>(whole.size()));
      const auto song = SongSource::open(directory_.file("song"));
      EXPECT_EQ(song->seek(frame), frame);
      const Sound rest = read_all(*song);
      ASSERT_EQ(rest.size(), whole.size() - static_cast<std::size_t>(frame)) << part;
      EXPECT_LE(greatest_difference(rest, std::span(whole).subspan(static_cast<std::size_t>(frame))), tolerance)
          << part;
    }
  }
  // Long enough for a leap, which begins at 1000 frames.
  static const Signal& long_song(int rate) {
    static std::map<int, Signal> made;
    auto& signal = made[rate];
    if (signal.samples.empty()) signal = music(40.0, rate);
    return signal;
  }
  static Bytes constant(const std::string& kilobits, int rate = kSampleRate, const std::string& more = "-t") {
    return make_mp3(long_song(rate), {"-b", kilobits, more, "-q9"});
  }

  TempDirectory directory_;
};

TEST_F(Mp3Leap, PassesOverFramesOfConstantBitRate) {
  EXPECT_LT(walked(constant("128"), 1400), 100U);
  EXPECT_LT(walked(constant("128", kSampleRate, "--cbr"), 1400), 100U) << "with an information frame";
}

TEST_F(Mp3Leap, WalksWhereTheBitRateVaries) {
  EXPECT_GE(walked(make_mp3(long_song(kSampleRate), {"-V4", "-t", "-q9"}), 1400), 1400U);
}

TEST_F(Mp3Leap, LandsOnTheExactFrame) {
  expect_exact_seeks(constant("320"), kLeapRounding);
  if (test::kShortRuns) return;
  expect_exact_seeks(constant("128"), kLeapRounding);
  expect_exact_seeks(constant("96", kSampleRate, "--nores"), kLeapRounding);
  expect_exact_seeks(constant("160", kSampleRate, "--cbr"), kLeapRounding);
}

TEST_F(Mp3Leap, LandsOnTheExactFrameAtOtherRates) {
  expect_exact_seeks(constant("128", 48000), 1e-5F);
  if (test::kShortRuns) return;
  expect_exact_seeks(constant("96", 32000), 1e-5F);
  expect_exact_seeks(constant("64", 22050), 1e-5F);
}

// Bytes put in in the middle move everything after them out of its place: a calculation finds nothing there.
TEST_F(Mp3Leap, WalksWhereBytesWerePutIn) {
  const Bytes song = constant("128");
  const Bytes with_tag = slice(song, 0, 417 + 418 * 300) + make_id3v1() + slice(song, 417 + 418 * 300, song.size());
  expect_exact_seeks(with_tag, kLeapRounding);
}

TEST_F(Mp3Leap, ASeekBeyondTheEndFindsTheEnd) {
  const Bytes song = constant("128");
  file(song);
  const Frames length = measure_song(directory_.file("song"))->length;
  const auto opened = SongSource::open(directory_.file("song"));
  EXPECT_EQ(opened->seek(length + 1'000'000), length);
  Sound block(100);
  EXPECT_EQ(opened->read(block), 0U);
  EXPECT_EQ(opened->length(), length);
}

// What was passed over is there when it is wanted.
TEST_F(Mp3Leap, ASeekBackIntoWhatWasPassedOverIsExact) {
  file(constant("320"));
  const Sound whole = read_all(*SongSource::open(directory_.file("song")));
  const auto song = SongSource::open(directory_.file("song"));
  Sound block(3000);
  for (const Frames frame : {1'700'000, 1'200'000, 1'201'000, 700'000, 1'500'000, 5000, 1'400'001}) {
    song->seek(frame);
    ASSERT_EQ(song->read(block), block.size());
    EXPECT_LE(greatest_difference(block, std::span(whole).subspan(static_cast<std::size_t>(frame))), kLeapRounding)
        << frame;
  }
}

// A stream that is said to be constant by its first frames, and is not.
TEST_F(Mp3Leap, WalksThroughAStreamThatChangesItsBitRateLater) {
  expect_exact_seeks(
      make_mp3(music(10.0), {"-b", "128", "-t", "--nores"}) + make_mp3(music(30.0), {"-b", "192", "-t", "--nores"}),
      kLeapRounding);
}

}  // namespace
}  // namespace tandem::test

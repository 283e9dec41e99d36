// MPEG audio files with things around, between and within their frames that are no sound.
#include <gtest/gtest.h>

#include <algorithm>

#include "engine/decode/mpeg_header.h"
#include "support/mp3_maker.h"
#include "support/song_check.h"

namespace tandem::test {
namespace {

class Mp3Damage : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    tagged_ = new Bytes(make_mp3(music(4.0), {"-V2"}));
    plain_ = new Bytes(make_mp3(music(4.0), {"-b", "128", "-t"}));
    whole_ = new Sound(check_song(*tagged_).sound);
  }
  static void TearDownTestSuite() {
    delete tagged_;
    delete plain_;
    delete whole_;
  }
  static const Bytes& tagged() { return *tagged_; }
  static const Bytes& plain() { return *plain_; }
  static const Sound& whole() { return *whole_; }

  // Offset of the first frame at or after `from`.
  static std::size_t frame_at(const Bytes& bytes, std::size_t from) {
    while (bytes[from] != 0xFF || (bytes[from + 1] & 0xFE) != 0xFA) ++from;
    return from;
  }

  // Offset just after the first `frames`.
  static std::size_t after_frames(const Bytes& bytes, int frames) {
    std::size_t offset = 0;
    for (int i = 0; i < frames; ++i) offset += static_cast<std::size_t>(parse_mpeg_header(&bytes[offset])->bytes);
    return offset;
  }

 private:
  static inline Bytes* tagged_ = nullptr;
  static inline Bytes* plain_ = nullptr;
  static inline Sound* whole_ = nullptr;
};

TEST_F(Mp3Damage, TagsNeverSound) {
  const std::vector<std::pair<Bytes, Bytes>> around = {
      {make_id3v2(3000), make_id3v1()},
      {make_id3v2(3000, 0x80), {}},  // unsynchronised
      {make_id3v2(2000) + make_id3v2(4000), make_ape() + make_id3v1()},
      {make_ape(), make_lyrics3() + make_id3v1()},
      {{}, make_ape() + make_lyrics3() + make_id3v1()},
      {Bytes(5000), Bytes(3000)},
  };
  for (std::size_t i = 0; i < around.size(); ++i) {
    const SongCheck check = check_song(around[i].first + tagged() + around[i].second);
    EXPECT_TRUE(check.consistent(0.0F)) << i << ": " << check.length << " " << check.measured << " "
                                        << check.sound.size();
    EXPECT_EQ(check.sound, whole()) << i << ": " << check.sound.size();
  }
}

TEST_F(Mp3Damage, HugeTagIsSkipped) {
  const SongCheck check = check_song(make_id3v2(20'000'000) + tagged());
  EXPECT_TRUE(check.consistent(0.0F));
  EXPECT_EQ(check.sound, whole());
}

TEST_F(Mp3Damage, TagBetweenTwoStreamsNeverSounds) {
  const SongCheck apart = check_song(plain());
  const SongCheck check = check_song(plain() + make_id3v1() + make_id3v2(50000) + plain());
  EXPECT_TRUE(check.consistent(0.0F));
  ASSERT_EQ(check.length, 2 * apart.length);
  EXPECT_TRUE(std::ranges::equal(std::span(check.sound).last(apart.sound.size()), apart.sound));
}

TEST_F(Mp3Damage, GarbageBeforeTheFirstFrame) {
  const SongCheck check = check_song(random_bytes(900'000, 1) + tagged());
  EXPECT_TRUE(check.consistent(0.0F));
  EXPECT_EQ(check.sound, whole());
}

TEST_F(Mp3Damage, TooMuchGarbageIsNoSong) { EXPECT_FALSE(check_song(random_bytes(1'200'000, 1) + tagged()).opened); }

TEST_F(Mp3Damage, GarbageWithinDoesNotEndTheSong) {
  for (const Bytes& song : {tagged(), plain()}) {
    const std::size_t at = frame_at(song, song.size() / 2);
    const SongCheck check = check_song(slice(song, 0, at) + random_bytes(65536, 2) + slice(song, at, song.size()));
    const SongCheck before = check_song(song);
    EXPECT_TRUE(check.consistent(0.0F)) << check.length << " " << check.measured << " " << check.sound.size() << " "
                                        << check.difference;
    EXPECT_EQ(check.length, before.length);
    const std::size_t tail = 20000;
    // The decoder of an arm64 processor rounds otherwise where its ring stands at another place.
    EXPECT_LT(greatest_difference(std::span(check.sound).last(tail), std::span(before.sound).last(tail)), 1e-6F);
  }
}

TEST_F(Mp3Damage, OverwrittenFramesAreSilentWhereTheyWere) {
  Bytes song = tagged();
  const std::size_t at = song.size() / 2;
  const Bytes noise = random_bytes(10'000, 3);
  std::copy(noise.begin(), noise.end(), song.begin() + static_cast<std::ptrdiff_t>(at));
  const SongCheck check = check_song(song);
  EXPECT_TRUE(check.consistent(0.0F)) << check.length << " " << check.measured << " " << check.sound.size() << " "
                                      << check.difference;
  ASSERT_EQ(check.sound.size(), whole().size());
  const std::size_t stretch = 40000;
  EXPECT_TRUE(std::ranges::equal(std::span(check.sound).first(stretch), std::span(whole()).first(stretch)));
  const auto reference = std::span(whole()).last(stretch);
  const auto end = std::span(check.sound).last(stretch);
  // How many frames were lost is estimated from the lost bytes: within two frames at a variable bit rate.
  EXPECT_LE(std::abs(lag(reference, end, 5000, 20000, 3000)), 2 * 1152);
}

// Sets the gain fields in a frame's side information (stereo, MPEG 1) to their greatest value.
void turn_up(Bytes& song, std::size_t frame) {
  constexpr std::size_t kFirstGainBit = 41;
  constexpr std::size_t kBitsApart = 59;
  for (std::size_t granule = 0; granule < 4; ++granule) {
    for (std::size_t bit = 0; bit < 8; ++bit) {
      const std::size_t at = kFirstGainBit + granule * kBitsApart + bit;
      song[frame + 4 + at / 8] = static_cast<std::uint8_t>(song[frame + 4 + at / 8] | (0x80U >> at % 8));
    }
  }
}

TEST_F(Mp3Damage, DamageIsNotMadeThousandfoldLoud) {
  Bytes song = plain();
  for (std::size_t at = frame_at(song, 20'000); at < 40'000; at = frame_at(song, at + 400)) turn_up(song, at);
  const SongCheck check = check_song(song);
  EXPECT_EQ(check.length, check_song(plain()).length);
  EXPECT_GT(rms(check.sound), rms(check_song(plain()).sound));
  EXPECT_LE(greatest_difference(check.sound, Sound(check.sound.size())), 4.0F);
}

TEST_F(Mp3Damage, MissingBytesCostOnlyTheirFrames) {
  const std::size_t at = frame_at(plain(), 20'000) + 100;
  const SongCheck before = check_song(plain());
  const SongCheck check = check_song(slice(plain(), 0, at) + slice(plain(), at + 50, plain().size()));
  EXPECT_TRUE(check.consistent(0.0F));
  EXPECT_EQ(check.length, before.length - 1152);
}

// What the last frame lacks counts as zeros, as libmpg123 has it with files.
TEST_F(Mp3Damage, ALastFrameThatIsCutShortSounds) {
  const std::size_t last = after_frames(plain(), 95);
  const Sound before = check_song(slice(plain(), 0, last)).sound;
  const std::size_t whole_frame = before.size() + 1152;
  for (const std::size_t rest : {5U, 100U, 300U, 416U}) {
    const Bytes cut = slice(plain(), 0, last + rest);
    const SongCheck check = check_song(cut);
    EXPECT_TRUE(check.consistent(0.0F)) << rest;
    ASSERT_EQ(check.sound.size(), whole_frame) << rest;
    EXPECT_TRUE(std::ranges::equal(std::span(check.sound).first(before.size()), before)) << rest;
  }
  EXPECT_EQ(check_song(slice(plain(), 0, last + 4)).sound.size(), before.size());  // nothing after its header
}

TEST_F(Mp3Damage, ACutFrameSoundsLikeTheSameFrameFilledWithZeros) {
  const std::size_t last = after_frames(plain(), 95);
  const std::size_t next = after_frames(plain(), 96);
  for (const std::size_t rest : {200U, 300U}) {
    Bytes filled = slice(plain(), 0, last + rest);
    filled.resize(next);
    EXPECT_TRUE(check_song(slice(plain(), 0, last + rest)).sound == check_song(filled).sound) << rest;
  }
}

TEST_F(Mp3Damage, TruncatedTaggedFileKeepsItsPlace) {
  const SongCheck check = check_song(slice(tagged(), 0, tagged().size() / 2));
  EXPECT_TRUE(check.consistent(0.0F));
  EXPECT_LT(check.length, static_cast<Frames>(whole().size()));
  ASSERT_GT(check.length, 50000);
  EXPECT_TRUE(std::ranges::equal(std::span(check.sound).first(50000), std::span(whole()).first(50000)));
}

// A count of frames is not trusted as such. The stream is as long as the frame says: its end is padding all the same.
TEST_F(Mp3Damage, LyingInformationFrameIsNotBelieved) {
  const std::size_t at = frame_at(tagged(), 0) + 4 + 32 + 8;
  for (const std::uint32_t lie : {0U, 1U, 50U, 100'000U, 0xFFFFFFFFU}) {
    Bytes song = tagged();
    const Bytes number = number_bytes(lie, 4, true);
    std::copy(number.begin(), number.end(), song.begin() + static_cast<std::ptrdiff_t>(at));
    const SongCheck check = check_song(song);
    EXPECT_TRUE(check.consistent(0.0F)) << lie;
    EXPECT_EQ(check.sound, whole()) << lie;
  }
}

TEST_F(Mp3Damage, AppendedStreamIsCounted) {
  const SongCheck check = check_song(tagged() + tagged());
  EXPECT_TRUE(check.consistent(0.0F));
  EXPECT_GT(check.length, 2 * static_cast<Frames>(whole().size()));
}

TEST_F(Mp3Damage, FewFramesThatRunToTheEnd) {
  const std::size_t second = frame_at(plain(), 4);
  EXPECT_EQ(check_song(slice(plain(), 0, second)).length, 1152);
  EXPECT_TRUE(check_song(slice(plain(), 0, second)).consistent(0.0F));
  EXPECT_FALSE(check_song(slice(plain(), 0, second) + Bytes(9000)).opened);  // goes on as something else
}

TEST_F(Mp3Damage, OneOrTwoFramesOfWhichTheLastIsCut) {
  const std::size_t second = after_frames(plain(), 1);
  const std::size_t third = after_frames(plain(), 2);
  EXPECT_EQ(check_song(slice(plain(), 0, second - 1)).length, 1152);
  EXPECT_EQ(check_song(slice(plain(), 0, second + 100)).length, 2 * 1152);
  EXPECT_EQ(check_song(slice(plain(), 0, third + 100)).length, 3 * 1152);
  EXPECT_FALSE(check_song(slice(plain(), 0, 4)).opened);                            // a header alone
  EXPECT_FALSE(check_song(random_bytes(5000, 8) + slice(plain(), 0, 300)).opened);  // not where a song begins
  EXPECT_FALSE(check_song(Bytes{0xFF, 0xFE, 'H', 0, 'i', 0, '.', 0}).opened);       // UTF-16, like a header of Layer I
}

}  // namespace
}  // namespace tandem::test

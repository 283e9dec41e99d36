#include "engine/read/song_measure.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/mp3_maker.h"
#include "support/song_check.h"
#include "support/wav_writer.h"

namespace tandem::test {
namespace {

class SongMeasure : public testing::Test {
 protected:
  std::string song(const Bytes& content) {
    write_file(directory_.file("song.mp3"), content);
    return directory_.file("song.mp3");
  }
  // Two minutes, most of a megabyte, that must be walked through.
  static Bytes long_song() {
    Bytes song;
    const Bytes part = make_mp3(tones(10.0, 300.0, 0.2), {"-V5", "-t", "--nores"});
    for (int i = 0; i < 12; ++i) song = song + part;
    return song;
  }

  TempDirectory directory_;
};

TEST_F(SongMeasure, IsAsLongAsWhatIsPlayed) {
  for (const Bytes& file : {make_mp3(music(3.0), {"-V2", "-t"}), make_mp3(music(3.0), {"-b", "128"}),
                            wav_file(music(2.0, 48000), Encoding::kInt16)}) {
    const auto measured = measure_song(song(file));
    ASSERT_TRUE(measured);
    EXPECT_TRUE(measured->opens);
    EXPECT_EQ(measured->length, static_cast<Frames>(check_song(file).sound.size()));
  }
}

TEST_F(SongMeasure, WhatGivesNoSoundHasLengthZero) {
  for (const std::string& path : {song(Bytes(3000)), directory_.path(), directory_.file("missing.mp3")}) {
    const auto measured = measure_song(path);
    ASSERT_TRUE(measured) << path;
    EXPECT_FALSE(measured->opens) << path;
    EXPECT_EQ(measured->length, 0) << path;
  }
}

TEST_F(SongMeasure, ReportsItsProgressUpToTheEnd) {
  const std::string path = song(long_song());
  const auto size = static_cast<std::int64_t>(std::filesystem::file_size(path));
  std::int64_t before = 0;
  std::int64_t farthest_step = 0;
  const auto measured = measure_song(path, {}, [&](std::int64_t done, std::int64_t all) {
    EXPECT_EQ(all, size);
    EXPECT_GE(done, before);
    farthest_step = std::max(farthest_step, done - before);
    before = done;
  });
  EXPECT_TRUE(measured && measured->opens);
  EXPECT_GT(before, size - 2000);
  EXPECT_LE(farthest_step, 65536);
}

TEST_F(SongMeasure, AStopEndsItWithinOneRead) {
  const std::string path = song(long_song());
  std::stop_source stop;
  std::int64_t stopped_at = 0;
  int reports_after = -1;
  const auto measured = measure_song(path, stop.get_token(), [&](std::int64_t done, std::int64_t) {
    if (done > 200'000 && stopped_at == 0) {
      stop.request_stop();
      stopped_at = done;
    }
    if (stopped_at > 0) ++reports_after;
  });
  EXPECT_FALSE(measured);
  EXPECT_GT(stopped_at, 0);
  EXPECT_LE(reports_after, 2);
}

// Garbage holds no frames after which to look for a stop.
TEST_F(SongMeasure, AStopEndsTheSearchThroughGarbage) {
  Bytes garbage = make_mp3(tones(1.0, 300.0, 0.2), {"-b", "128", "-t"});
  garbage.resize(5'000'000);
  std::stop_source stop;
  std::int64_t farthest = 0;
  const auto measured = measure_song(song(garbage), stop.get_token(), [&](std::int64_t done, std::int64_t) {
    farthest = done;
    if (done > 1'000'000) stop.request_stop();
  });
  EXPECT_FALSE(measured);
  EXPECT_GT(farthest, 1'000'000);
  EXPECT_LT(farthest, 1'200'000);
}

TEST_F(SongMeasure, AFileIsTheSameUntilItChanges) {
  const std::string path = song(Bytes(3000, 1));
  const auto first = identify_song_file(path);
  ASSERT_TRUE(first);
  EXPECT_EQ(first, identify_song_file("- " + path));
  EXPECT_EQ(first, measure_song(path)->identity);
  std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) + std::chrono::milliseconds(10));
  const auto touched = identify_song_file(path);
  EXPECT_NE(first, touched);
  std::filesystem::rename(path, directory_.file("other.mp3"));
  EXPECT_EQ(identify_song_file(path), std::nullopt);
  EXPECT_EQ(identify_song_file(directory_.file("other.mp3")), touched);
}

}  // namespace
}  // namespace tandem::test

#include "base/song_endings.h"

#include <gtest/gtest.h>

namespace tandem {
namespace {

TEST(SongEndings, CountInAnyLetterCase) {
  for (const char* path : {"/m/a.mp3", "/m/A.MP3", "a.Wav", ".mp3", "/m/vol. 2.wAV"})
    EXPECT_TRUE(ends_as_song(path)) << path;
}

TEST(SongEndings, OnlyTheEndCounts) {
  for (const char* path : {"", "mp3", "/m/a.mp3.txt", "/m/a.mp33", "/m.mp3/a", "/m/a.m3l", "/m/a.mp\xB3"})
    EXPECT_FALSE(ends_as_song(path)) << path;
}

TEST(SongEndings, DifferFromThatOfASavedList) {
  EXPECT_TRUE(ends_as_list("/m/Night.M3L"));
  EXPECT_FALSE(ends_as_list("/m/night.m3u"));
  EXPECT_FALSE(ends_as_list("/m/vol. 2"));
}

}  // namespace
}  // namespace tandem

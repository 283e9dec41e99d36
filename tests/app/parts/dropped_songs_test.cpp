#include "app/dropped_songs.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>

#include "base/whole_file.h"
#include "support/temp_directory.h"

namespace tandem::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class DroppedSongs : public testing::Test {
 protected:
  std::string make(const std::string& name) const {
    fs::create_directories(fs::path(directory.file(name)).parent_path());
    replace_whole_file(directory.file(name), "x");
    return directory.file(name);
  }
  Dropped drop(const std::vector<std::string>& names, DropLimits most = {200, 200}) {
    std::vector<std::string> paths;
    for (const std::string& name : names) paths.push_back(directory.file(name));
    return dropped_songs(paths, most, [this](const std::string& path) {
      asked.push_back(path.substr(directory.path().size() + 1));
      return path.ends_with("sound.bin");
    });
  }
  std::vector<std::string> songs(const Dropped& found) const {
    std::vector<std::string> names;
    for (const std::string& path : found.songs) names.push_back(path.substr(directory.path().size() + 1));
    return names;
  }

  TempDirectory directory;
  std::vector<std::string> asked;
};

TEST_F(DroppedSongs, OnlySongsAreTakenOfFiles) {
  for (const char* name : {"b.MP3", "a.wav", "cover.jpg", "sound.bin", "notes.txt"}) make(name);
  const Dropped found = drop({"cover.jpg", "b.MP3", "sound.bin", "a.wav", "notes.txt", "missing.mp3"});
  EXPECT_THAT(songs(found), ElementsAre("a.wav", "b.MP3", "sound.bin"));
  EXPECT_THAT(asked, ElementsAre("cover.jpg", "notes.txt", "sound.bin"));
  EXPECT_FALSE(found.more);
}

TEST_F(DroppedSongs, AListIsFoundAfterMoreSongsThanFitAndMakesRoom) {
  for (const char* name : {"1.wav", "2.wav", "3.wav", "night.m3l"}) make(name);
  const Dropped found = drop({"1.wav", "2.wav", "3.wav", "night.m3l"}, {0, 2});
  EXPECT_THAT(songs(found), ElementsAre("1.wav", "2.wav"));
  EXPECT_TRUE(found.list.ends_with("night.m3l"));
  EXPECT_TRUE(found.more);
}

TEST_F(DroppedSongs, OfFoldersTheSongsByTheirEnding) {
  for (const char* name :
       {"f/2.wav", "f/10.mp3", "f/.hidden.mp3", "f/sound.bin", "f/cd/1.mp3", "f/.cd/1.mp3", "f/x.m3l"})
    make(name);
  const Dropped found = drop({"f"});
  EXPECT_THAT(songs(found), ElementsAre("f/2.wav", "f/10.mp3", "f/cd/1.mp3"));
  EXPECT_THAT(asked, IsEmpty());
  EXPECT_EQ(found.list, "");
}

TEST_F(DroppedSongs, TheLastSavedListIsOpened) {
  for (const char* name : {"1.m3l", "2.M3L", "a.mp3"}) make(name);
  const Dropped found = drop({"2.M3L", "a.mp3", "1.m3l"});
  EXPECT_EQ(found.list, directory.file("2.M3L"));
  EXPECT_THAT(songs(found), ElementsAre("a.mp3"));
}

TEST_F(DroppedSongs, NoFurtherThanWhatFits) {
  for (int i = 0; i < 30; ++i) make("f/" + std::to_string(i) + ".mp3");
  for (const char* name : {"g/a.mp3", "z.bin"}) make(name);
  const Dropped found = drop({"f", "g", "z.bin"}, {10, 10});
  EXPECT_THAT(found.songs, SizeIs(10));
  EXPECT_EQ(found.songs.back(), directory.file("f/9.mp3"));
  EXPECT_TRUE(found.more);
  EXPECT_THAT(asked, IsEmpty());
  EXPECT_FALSE(drop({"f"}, {30, 30}).more);
}

TEST_F(DroppedSongs, AFolderThatLeadsBackIsNotWalkedAgain) {
  make("f/a.mp3");
  fs::create_directory_symlink(directory.file("f"), directory.file("f/again"));
  EXPECT_THAT(songs(drop({"f"})), ElementsAre("f/a.mp3"));
}

TEST_F(DroppedSongs, WhatIsNoFileIsNoSong) {
  ASSERT_EQ(::mkfifo(directory.file("pipe.mp3").c_str(), 0600), 0);
  EXPECT_THAT(drop({"pipe.mp3"}).songs, IsEmpty());
}

TEST_F(DroppedSongs, AStopEndsTheWalk) {
  make("f/a.mp3");
  std::stop_source stop;
  stop.request_stop();
  const auto never = [](const std::string&) { return false; };
  EXPECT_THAT(dropped_songs({directory.file("f")}, {200, 200}, never, stop.get_token()).songs, IsEmpty());
}

}  // namespace
}  // namespace tandem::test

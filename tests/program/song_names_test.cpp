// Names of every kind come back as they are: from the dialog in both forms, and from a playlist file.
#include <gmock/gmock.h>

#include <filesystem>

#include "program/player_rig.h"
#include "program/signatures.h"
#include "program/songs.h"
#include "support/bytes.h"

namespace tandem::test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

const std::vector<std::string> kNames = {
    "with blanks in it.wav",         "it's \"quoted\".wav",
    "\"quoted at its beginning.wav", "M\xC3\xBCller \xC3\x84\xC3\x96\xC3\x9F.wav",
    "4 bytes \xF0\x9F\x8E\xB5.wav",  "no \xFF\xFE\x80 text at all.wav",
    "- begins like an old list.wav", "a\\b.wav",
    std::string(251, 'x') + ".wav",
};

class SongNames : public testing::Test {
 protected:
  void SetUp() override {
    for (const std::string& name : kNames) songs.push_back(make_song(rig, name, constant(0.1, 60)));
  }
  std::vector<std::string> lines() const {
    std::vector<std::string> lines;
    for (std::int32_t i = 0; i < rig.controls().PlayList.ListCount(); ++i)
      lines.push_back(rig.controls().PlayList.List(i).substr(5));
    return lines;
  }
  std::vector<std::string> table() {
    std::vector<std::string> files;
    for (std::int32_t n = 1; n <= rig.state().SongCount; ++n)
      files.push_back(rig.player().program.SongTable.at(n).SongFile);
    return files;
  }
  std::vector<std::string> paths() const {
    std::vector<std::string> paths;
    for (const AddedSong& song : songs) paths.push_back(song.path);
    return paths;
  }
  void save_and_open(const std::string& list) {
    rig.player().dialog.answers = {list, list};
    rig.controls().SaveList.click.raise();
    rig.controls().LoadList.click.raise();
  }
  // The panel comes to a stop after each song has sounded: 60 ms each.
  void play_all(std::size_t count) {
    std::size_t finished = 0;
    rig.hooks.before_finished.emplace_back([&](int) { ++finished; });
    rig.play();
    EXPECT_TRUE(rig.run_until_stopped(5000));
    EXPECT_EQ(finished, count);
    rig.run(20);
    std::size_t heard = 0;
    for (const Sample16& frame : rig.sound()) heard += frame.left > 2000 ? 1U : 0U;
    EXPECT_GT(heard, count * static_cast<std::size_t>(frames_of(60)) / 2);
  }

  PlayerRig rig;
  std::vector<AddedSong> songs;
};

TEST_F(SongNames, StayTheSameOneByOne) {
  rig.add(paths());
  EXPECT_THAT(lines(), ElementsAreArray(paths()));
  EXPECT_THAT(table(), ElementsAreArray(paths()));
  play_all(kNames.size());
}

// Added from the last to the first.
TEST_F(SongNames, StayTheSameSeveralAtOnce) {
  std::string several = rig.file("");
  several.pop_back();
  for (auto name = kNames.rbegin(); name != kNames.rend(); ++name) several += '\0' + *name;
  rig.add(several);
  EXPECT_THAT(lines(), ElementsAreArray(paths()));
  EXPECT_THAT(table(), ElementsAreArray(paths()));
  play_all(kNames.size());
}

TEST_F(SongNames, StayTheSameThroughAPlaylistFile) {
  rig.add(paths());
  save_and_open(rig.file("my list.m3l"));
  EXPECT_THAT(lines(), ElementsAreArray(paths()));
  EXPECT_THAT(table(), ElementsAreArray(paths()));
  play_all(kNames.size());
}

// A comma ends a field, as a line end does: such a song comes back as two that are not there.
TEST_F(SongNames, ACommaIsTwoSongsAfterAPlaylistFile) {
  const AddedSong comma = add_song(rig, "one, two.wav", constant(0.1, 60));
  rig.add(songs[0].path);
  EXPECT_THAT(lines(), ElementsAre(comma.path, songs[0].path));
  save_and_open(rig.file("comma.m3l"));
  EXPECT_THAT(lines(), ElementsAre(rig.file("one"), "two.wav", songs[0].path));
  EXPECT_EQ(rig.state().SongCount, 2);  // "one" has no song's name
  EXPECT_THAT(table(), ElementsAre("two.wav", songs[0].path));
}

// Songs 100 to 200 are saved with "- " before their paths, are opened without it and read back with it.
TEST_F(SongNames, ALongListComesBackWhole) {
  for (int i = 0; i < 120; ++i) rig.add(songs[static_cast<std::size_t>(i) % songs.size()].path);
  auto expected = table();
  for (std::size_t i = 99; i < expected.size(); ++i) expected[i].insert(0, "- ");
  save_and_open(rig.file("long.m3l"));
  EXPECT_EQ(rig.state().SongCount, 120);
  EXPECT_THAT(table(), ElementsAreArray(expected));
  EXPECT_EQ(rig.player().program.SongTable.at(110).SongLength, 60);
}

TEST(LongLists, ALineFromOneHundredOnIsFoundAgainAfterAnEdit) {
  PlayerRig rig;
  const AddedSong song = make_song(rig, "song.wav", constant(0.1, 20'000));
  std::string text;
  for (int i = 1; i <= 105; ++i) {
    const std::string path = rig.file(std::to_string(i) + ".wav");
    std::filesystem::create_symlink(song.path, path);
    text += (i < 100 ? " " : "- ") + path + "\r\n";
  }
  write_file(rig.file("long.m3l"), text_bytes(text));
  rig.player().dialog.answers = {rig.file("long.m3l")};
  rig.controls().LoadList.click.raise();
  rig.controls().PlayList.user_select(103);
  rig.play();
  rig.controls().PlayList.user_double_click(0);
  rig.run(3000);
  EXPECT_EQ(rig.controls().PlayList.ListIndex(), 102);
  EXPECT_EQ(rig.state().CurrentSong, 103);
  EXPECT_FALSE(rig.sound_graph().ListTimer->Enabled());
}

}  // namespace
}  // namespace tandem::test

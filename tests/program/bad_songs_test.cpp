// Files that are no songs: by a song's name they are added at once and passed over at their turn, by another they are
// refused; and what has become such a file since it was added is passed over too.
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "faults/measured.h"
#include "program/player_rig.h"
#include "program/signatures.h"
#include "program/songs.h"
#include "support/bytes.h"
#include "support/special_files.h"

namespace tandem::test {
namespace {

namespace fs = std::filesystem;

struct BadFile {
  const char* kind;
  void (*make)(const std::string& path);  // nothing is there before
};

const BadFile kBadFiles[] = {
    {"missing", [](const std::string&) {}},
    {"folder", [](const std::string& path) { fs::create_directory(path); }},
    {"fifo", [](const std::string& path) { ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0); }},
    {"socket", make_socket},
    {"endless_device", [](const std::string& path) { fs::create_symlink("/dev/zero", path); }},
    {"dangling_link", [](const std::string& path) { fs::create_symlink("nowhere", path); }},
    {"link_to_itself", [](const std::string& path) { fs::create_symlink(path, path); }},
    {"empty", [](const std::string& path) { write_file(path, {}); }},
    {"text", [](const std::string& path) { write_file(path, text_bytes("Once upon a time there was no music.\n")); }},
    {"only_ones", [](const std::string& path) { write_file(path, Bytes(1'000'000, 0xFF)); }},
    {"only_zeros", [](const std::string& path) { write_file(path, Bytes(1'000'000, 0)); }},
    {"half_a_header", [](const std::string& path) { write_file(path, text_bytes("RIFF\x24\x01")); }},
};

class BadSong : public testing::TestWithParam<BadFile> {
 protected:
  // All that was heard are these two songs, the second 30 ms after the first at most.
  void expect_follows(const AddedSong& first, const AddedSong& last) {
    SongFinder finder(rig.sound());
    const std::size_t begin = finder.take(first.sound);
    const std::size_t next = finder.take(last.sound);
    EXPECT_LE(finder.rest(), 1.0);
    EXPECT_LE(next, begin + first.sound.size() + 30 * kSampleRate / 1000);
  }

  PlayerRig rig;
};

TEST_P(BadSong, ByASongsNameIsPassedOverAndCostsNothingButItself) {
  const AddedSong first = add_noise(rig, "first", 1000);
  GetParam().make(rig.file("bad.MP3"));
  rig.add(rig.file("bad.MP3"));
  const AddedSong last = add_noise(rig, "last", 1000);
  EXPECT_EQ(rig.controls().PlayList.List(1), "02 - " + rig.file("bad.MP3"));
  EXPECT_EQ(rig.player().program.SongTable.at(1).SongFile, first.path);
  EXPECT_EQ(rig.player().program.SongTable.at(2).SongLength, 0);
  EXPECT_EQ(rig.player().program.SongTable.at(3).SongFile, last.path);
  rig.play();
  ASSERT_TRUE(rig.run_until_stopped(5000));
  rig.run(20);
  expect_follows(first, last);
  record_fault(std::string("added as a song: ") + GetParam().kind,
               "passed over, nothing is waited for, no other is lost",
               "line \"" + rig.controls().PlayList.List(1).substr(0, 5) + "...\", all others heard");
}

TEST_P(BadSong, ThatIsThereAgainAtItsTurnPlays) {
  const AddedSong first = add_noise(rig, "first", 1000);
  GetParam().make(rig.file("later.wav"));
  rig.add(rig.file("later.wav"));
  rig.run(500);
  fs::remove(rig.file("later.wav"));
  const AddedSong later = make_song(rig, "later.wav", signature(5, 1.0, 0.2));
  rig.play();
  ASSERT_TRUE(rig.run_until_stopped(5000));
  rig.run(20);
  SongFinder finder(rig.sound());
  finder.take(first.sound);
  finder.take(later.sound);
  EXPECT_LE(finder.rest(), 1.0);
}

// The line repeats the number before it, and the table entry of that song is overwritten.
TEST_P(BadSong, ByAnotherNameIsRefusedAndGetsALineWithoutAName) {
  const AddedSong good = add_noise(rig, "good", 1000);
  GetParam().make(rig.file("bad.ogg"));
  rig.add(rig.file("bad.ogg"));
  EXPECT_EQ(rig.controls().PlayList.ListCount(), 2);
  EXPECT_EQ(rig.controls().PlayList.List(0), "01 - " + good.path);
  EXPECT_EQ(rig.controls().PlayList.List(1), "01 - ");
  EXPECT_EQ(rig.state().SongCount, 1);
  EXPECT_EQ(rig.player().program.SongTable.at(1).SongFile, "");
  EXPECT_EQ(rig.player().program.SongTable.at(1).SongLength, 0);
}

TEST_P(BadSong, AmongSeveralKeepsItsNumber) {
  make_song(rig, "first.wav", constant(0.1, 100));
  make_song(rig, "third.wav", constant(0.1, 100));
  GetParam().make(rig.file("second.mp3"));
  std::string several = rig.file("");
  several.pop_back();
  for (const char* name : {"third.wav", "second.mp3", "first.wav"}) several += std::string(1, '\0') + name;
  rig.add(several);
  const ListBox& list = rig.controls().PlayList;
  EXPECT_EQ(rig.state().SongCount, 3);
  EXPECT_EQ(list.List(0), "01 - " + rig.file("first.wav"));
  EXPECT_EQ(list.List(1), "02 - " + rig.file("second.mp3"));
  EXPECT_EQ(list.List(2), "03 - " + rig.file("third.wav"));
}

TEST_P(BadSong, IsPassedOverWhereASongHasBecomeOne) {
  const AddedSong first = add_noise(rig, "first", 3000);
  const AddedSong spoilt = add_noise(rig, "spoilt", 3000);
  const AddedSong last = add_noise(rig, "last", 3000);
  fs::remove(spoilt.path);
  GetParam().make(spoilt.path);
  rig.play();
  ASSERT_TRUE(rig.run_until_stopped(10'000));
  rig.run(20);
  expect_follows(first, last);
}

TEST_P(BadSong, IsNoPlaylistEither) {
  const AddedSong good = add_noise(rig, "good", 1000);
  GetParam().make(rig.file("bad.m3l"));
  rig.player().dialog.answers.push_back(rig.file("bad.m3l"));
  rig.controls().LoadList.click.raise();
  rig.play();
  EXPECT_TRUE(rig.run_until_stopped(5000));
}

INSTANTIATE_TEST_SUITE_P(Kinds, BadSong, testing::ValuesIn(kBadFiles),
                         [](const auto& test) { return std::string(test.param.kind); });

// The super-user reads everything.
TEST(UnreadableSong, HasNoLength) {
  PlayerRig rig;
  const AddedSong song = make_song(rig, "locked.wav", constant(0.1, 100));
  fs::permissions(song.path, fs::perms::none);
  rig.add(song.path);
  EXPECT_EQ(rig.controls().PlayList.List(0), "01 - " + song.path);
  EXPECT_EQ(rig.player().program.SongTable.at(1).SongLength, ::geteuid() == 0 ? 100 : 0);
}

TEST(RefusedSong, FirstOfAnEmptyListIsNumberZero) {
  PlayerRig rig;
  rig.add(rig.file("missing.ogg"));
  EXPECT_EQ(rig.controls().PlayList.List(0), "00 - ");
  rig.play();
  EXPECT_TRUE(rig.run_until_stopped(1000));
}

}  // namespace
}  // namespace tandem::test

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "base/whole_file.h"
#include "fakes/panel_test.h"

namespace tandem {
namespace {

using test::PanelTest;
using testing::ElementsAre;
using testing::IsEmpty;

struct PlaylistFile : PanelTest {
  std::string path = panel.directory.file("songs.m3l");

  std::string saved() {
    panel.dialog.answers.push_back(path);
    controls.SaveList.click.raise();
    return read_whole_file(path);
  }
  void open(const std::string& text) {
    replace_whole_file(path, text);
    panel.dialog.answers.push_back(path);
    controls.LoadList.click.raise();
  }
};

TEST_F(PlaylistFile, ThreeSongsAreThreeLines) {
  panel.add_songs(3);
  EXPECT_EQ(saved(), " /music/a.mp3\r\n /music/b.mp3\r\n /music/c.mp3\r\n");
}

TEST_F(PlaylistFile, AnEmptyListIsAnEmptyFile) { EXPECT_EQ(saved(), ""); }

TEST_F(PlaylistFile, SavingOverAnOldFileLeavesNoRest) {
  replace_whole_file(path, std::string(1000, 'x'));
  panel.add_songs(1);
  EXPECT_EQ(saved(), " /music/a.mp3\r\n");
}

TEST_F(PlaylistFile, FromSongOneHundredOnTheHyphenIsSaved) {
  panel.add_songs(101);
  EXPECT_NE(saved().find(" /music/98.mp3\r\n- /music/99.mp3\r\n- /music/100.mp3\r\n"), std::string::npos);
}

TEST_F(PlaylistFile, AtMostTwoHundredLinesAreSaved) {
  panel.add_songs(201);
  const std::string text = saved();
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 200);
  EXPECT_TRUE(text.ends_with("- /music/199.mp3\r\n"));
}

TEST_F(PlaylistFile, TheSaveDialogIsSetUpAndTheFolderStays) {
  state.LastFolder = "/old";
  controls.CommonDialog.InitDir = "before";
  saved();
  EXPECT_EQ(panel.dialog.shows.at(0).operation, "save");
  EXPECT_EQ(panel.dialog.shows.at(0).Filter, "PlayList Files (M3L)|*.m3l");
  EXPECT_EQ(panel.dialog.shows.at(0).InitDir, "before");
  EXPECT_EQ(state.LastFolder, "/old");
}

TEST_F(PlaylistFile, OpeningGivesNumberedLinesAndEntries) {
  panel.add_songs(3);
  const std::string text = saved();
  panel.add_songs(2);
  open(text);
  EXPECT_THAT(panel.lines(controls.PlayList),
              ElementsAre("01 - /music/a.mp3", "02 - /music/b.mp3", "03 - /music/c.mp3"));
  EXPECT_EQ(state.SongCount, 3);
  EXPECT_EQ(table.at(2).SongFile, "/music/b.mp3");
  EXPECT_EQ(table.at(2).SongLength, test::TestPanel::song_length(1));
  EXPECT_EQ(state.LastFolder, panel.directory.path());
}

TEST_F(PlaylistFile, TheTwinListIsNotCleared) {
  panel.add_songs(5);
  open(" /music/a.mp3\r\n /music/b.mp3\r\n");
  EXPECT_EQ(controls.PlayList.ListCount(), 2);
  EXPECT_EQ(controls.ListAux2.ListCount(), 7);
  EXPECT_EQ(controls.ListAux2.List(5), "01 - /music/a.mp3");
}

TEST_F(PlaylistFile, EntriesAfterTheNewOnesAndTheLabelsStay) {
  panel.add_songs(3);
  state.CurrentSong = 2;
  state.NextSongLoaded = kTrue;
  open(" /music/c.mp3\r\n");
  EXPECT_EQ(table.at(1).SongFile, "/music/c.mp3");
  EXPECT_EQ(table.at(2).SongFile, "/music/b.mp3");
  EXPECT_EQ(controls.SongLabel.Caption.get(), "A.MP3");
  EXPECT_EQ(state.CurrentSong, 2);
  EXPECT_EQ(state.NextSongLoaded, kTrue);
}

TEST_F(PlaylistFile, APathWithACommaComesBackAsTwoEntries) {
  panel.add_song("/music/a, b.mp3", 1000);
  open(saved());
  EXPECT_THAT(panel.lines(controls.PlayList), ElementsAre("00 - /music/a", "00 - b.mp3"));
}

TEST_F(PlaylistFile, AQuotedPathKeepsItsCommaAndBlanks) {
  panel.sound.files.lengths["/music/a, b.mp3"] = 1000;
  open("\"/music/a, b.mp3\"\r\n");
  EXPECT_THAT(panel.lines(controls.PlayList), ElementsAre("01 - /music/a, b.mp3"));
}

TEST_F(PlaylistFile, LineEndsOfEitherKindAndNoneAtTheEnd) {
  panel.sound.files.lengths = {{"/a", 1}, {"/b", 2}, {"/c", 3}};
  open("/a\n/b\r\n/c");
  EXPECT_THAT(panel.lines(controls.PlayList), ElementsAre("01 - /a", "02 - /b", "03 - /c"));
}

TEST_F(PlaylistFile, ARefusedSongRepeatsTheNumberBefore) {
  panel.sound.files.lengths = {{"/a", 1}, {"/c", 3}};
  open("/bad\n/a\n/worse\n/c\n");
  EXPECT_THAT(panel.lines(controls.PlayList), ElementsAre("00 - /bad", "01 - /a", "01 - /worse", "02 - /c"));
  EXPECT_EQ(table.at(1).SongFile, "");  // overwritten by the refused one
  EXPECT_EQ(table.at(2).SongFile, "/c");
}

TEST_F(PlaylistFile, LinesOfSongsFromOneHundredOnAreProbedWithTheirHyphen) {
  panel.sound.files.lengths["- /music/a.mp3"] = 1000;
  open("- /music/a.mp3\r\n");
  EXPECT_EQ(panel.sound.calls.back(), "TempFile.FileName(- /music/a.mp3)");
  EXPECT_EQ(controls.PlayList.List(0), "01 - - /music/a.mp3");
}

TEST_F(PlaylistFile, TheLineShowsWhatWasReadAndTheTableWhatTheReaderAccepted) {
  panel.sound.files.lengths["/a"] = 1;
  open("/a\n/none\n");
  EXPECT_EQ(controls.PlayList.List(1), "01 - /none");
  EXPECT_EQ(table.at(1).SongFile, "");
}

TEST_F(PlaylistFile, TwoHundredAndOneFieldsAreReadButTheLastHasNoEntry) {
  panel.sound.files.lengths["/a"] = 1;
  std::string text;
  for (int i = 0; i < 201; ++i) text += " /a\r\n";
  open(text);
  EXPECT_THAT(panel.silent_errors, ElementsAre(RuntimeErrorKind::Range));
  EXPECT_EQ(controls.PlayList.ListCount(), 201);
  EXPECT_EQ(table.at(200).SongFile, "/a");
}

TEST_F(PlaylistFile, TwoHundredAndTwoFieldsEndTheHandlerBeforeAnythingChanges) {
  panel.add_songs(2);
  std::string text;
  for (int i = 0; i < 202; ++i) text += " /a\r\n";
  open(text);
  EXPECT_THAT(panel.silent_errors, ElementsAre(RuntimeErrorKind::Range));
  EXPECT_EQ(controls.PlayList.ListCount(), 2);
  EXPECT_EQ(state.SongCount, 2);
  EXPECT_EQ(state.LastFolder, panel.directory.path());  // but that step was done
}

TEST_F(PlaylistFile, AnEmptyFileEmptiesTheVisibleList) {
  panel.add_songs(2);
  open("");
  EXPECT_EQ(controls.PlayList.ListCount(), 0);
  EXPECT_EQ(controls.PlayList.ListIndex(), -1);
  EXPECT_EQ(state.SongCount, 0);
  EXPECT_EQ(controls.ListAux2.ListCount(), 2);
}

TEST_F(PlaylistFile, AMissingFileChangesOnlyTheFolder) {
  panel.add_songs(2);
  panel.dialog.answers.push_back(panel.directory.file("none.m3l"));
  controls.LoadList.click.raise();
  EXPECT_THAT(panel.silent_errors, ElementsAre(RuntimeErrorKind::FileNotFound));
  EXPECT_EQ(controls.PlayList.ListCount(), 2);
  EXPECT_EQ(state.LastFolder, panel.directory.path());
}

TEST_F(PlaylistFile, CancelChangesNothing) {
  panel.add_songs(2);
  state.LastFolder = "/old";
  controls.LoadList.click.raise();
  controls.SaveList.click.raise();
  EXPECT_THAT(panel.silent_errors, ElementsAre(RuntimeErrorKind::Cancelled, RuntimeErrorKind::Cancelled));
  EXPECT_EQ(controls.PlayList.ListCount(), 2);
  EXPECT_EQ(state.LastFolder, "/old");
}

TEST_F(PlaylistFile, AFileThatCannotBeWrittenEndsSilently) {
  panel.add_songs(1);
  std::filesystem::create_directory(path);
  panel.dialog.answers.push_back(path);
  controls.SaveList.click.raise();
  EXPECT_THAT(panel.silent_errors, ElementsAre(RuntimeErrorKind::FileAccess));
  EXPECT_THAT(panel.messages, IsEmpty());
}

TEST_F(PlaylistFile, TheOpenDialogIsSetUp) {
  state.LastFolder = "/old";
  open("");
  EXPECT_EQ(panel.dialog.shows.at(0).operation, "open");
  EXPECT_EQ(panel.dialog.shows.at(0).InitDir, "/old");
  EXPECT_EQ(panel.dialog.shows.at(0).Filter, "PlayList Files (M3L)|*.m3l");
}

TEST_F(PlaylistFile, BytesThatAreNoTextComeBack) {
  panel.add_song("/m/\xff\xc3.mp3", 1000);
  const std::string text = saved();
  open(text);
  EXPECT_EQ(table.at(1).SongFile, "/m/\xff\xc3.mp3");
  EXPECT_EQ(saved(), text);
}

}  // namespace
}  // namespace tandem

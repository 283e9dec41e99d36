#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "fakes/panel_test.h"

namespace tandem {
namespace {

using test::PanelTest;
using testing::ElementsAre;
using testing::IsEmpty;

std::string several(const std::string& directory, std::initializer_list<const char*> names) {
  std::string result = directory;
  for (const char* name : names) result.append(1, '\0').append(name);
  return result;
}

struct Loading : PanelTest {
  Loading() {
    for (const char* name : {"a", "b", "c"}) panel.sound.files.lengths["/music/" + std::string(name) + ".mp3"] = 225000;
    panel.sound.files.lengths["/music/a.mp3"] = 61000;
  }
  std::string title_of(const std::string& name) {
    panel.add_song("/music/" + name, 1000);
    return controls.SongLabel.Caption.get();
  }
};

TEST_F(Loading, OneFileIntoAnEmptyList) {
  panel.choose("/music/a.mp3");
  EXPECT_THAT(panel.lines(controls.PlayList), ElementsAre("01 - /music/a.mp3"));
  EXPECT_THAT(panel.lines(controls.ListAux2), ElementsAre("01 - /music/a.mp3"));
  EXPECT_EQ(state.SongCount, 1);
  EXPECT_EQ(table.at(1).SongFile, "/music/a.mp3");
  EXPECT_EQ(table.at(1).SongLength, 61000);
  EXPECT_EQ(controls.SongLabel.Caption.get(), "A.MP3");
  EXPECT_FALSE(controls.SongLabel.Scrolling);
  EXPECT_EQ(controls.LblTempTot.Caption.get(), "01:01");
  EXPECT_EQ(state.LastFolder, "/music");
}

TEST_F(Loading, OneFileIntoANonEmptyListLeavesTheLabels) {
  panel.choose("/music/a.mp3");
  panel.choose("/music/b.mp3");
  EXPECT_EQ(controls.PlayList.List(1), "02 - /music/b.mp3");
  EXPECT_EQ(controls.SongLabel.Caption.get(), "A.MP3");
  EXPECT_EQ(controls.LblTempTot.Caption.get(), "01:01");
}

TEST_F(Loading, SeveralFilesAreAddedFromTheLastToTheFirst) {
  panel.choose(several("/music", {"a.mp3", "b.mp3", "c.mp3"}));
  EXPECT_THAT(panel.lines(controls.PlayList),
              ElementsAre("01 - /music/c.mp3", "02 - /music/b.mp3", "03 - /music/a.mp3"));
  EXPECT_EQ(panel.lines(controls.ListAux2), panel.lines(controls.PlayList));
  EXPECT_EQ(table.at(1).SongFile, "/music/c.mp3");
  EXPECT_EQ(controls.SongLabel.Caption.get(), "A.MP3");
  EXPECT_EQ(controls.LblTempTot.Caption.get(), "03:45");  // that of song 1
  EXPECT_EQ(state.LastFolder, "/music");
}

TEST_F(Loading, SeveralFilesSetTheLabelsWhateverTheListHeld) {
  panel.choose("/music/a.mp3");
  panel.choose(several("/music", {"b.mp3", "c.mp3"}));
  EXPECT_EQ(controls.SongLabel.Caption.get(), "B.MP3");
  EXPECT_EQ(controls.LblTempTot.Caption.get(), "01:01");
}

TEST_F(Loading, TheReaderIsAskedInTheOrderOfTheLines) {
  panel.choose(several("/music", {"b.mp3", "c.mp3"}));
  EXPECT_THAT(panel.sound.calls, ElementsAre("TempFile.FileName(/music/c.mp3)", "TempFile.FileName(/music/b.mp3)"));
}

TEST_F(Loading, ALongTitleGetsTrailingBlanksAndScrolls) {
  EXPECT_EQ(title_of("1234567890.mp3"), "1234567890.MP3" + std::string(14, ' '));
  EXPECT_TRUE(controls.SongLabel.Scrolling);
}

TEST_F(Loading, ATitleOfThirteenCharactersDoesNotScroll) {
  EXPECT_EQ(title_of("123456789.mp3"), "123456789.MP3");
  EXPECT_FALSE(controls.SongLabel.Scrolling);
}

TEST_F(Loading, TheTitleIsMeasuredInCharacters) {
  panel.add_song("/music/\u00fc23456789.mp3", 1000);
  EXPECT_FALSE(controls.SongLabel.Scrolling);
}

TEST_F(Loading, ATitleThatBeginsWithFourBlanksStays) {
  EXPECT_EQ(title_of("    1234567890.mp3"), "    1234567890.MP3");
  EXPECT_FALSE(controls.SongLabel.Scrolling);
}

TEST_F(Loading, TheDialogIsSetUp) {
  state.LastFolder = "/old";
  panel.choose("/music/a.mp3");
  ASSERT_EQ(panel.dialog.shows.size(), 1U);
  EXPECT_EQ(panel.dialog.shows[0].operation, "open");
  EXPECT_EQ(panel.dialog.shows[0].InitDir, "/old");
  EXPECT_EQ(panel.dialog.shows[0].Filter, "MP3 and Wave Files (MP3 / WAV)|*.mp3;*.wav");
}

TEST_F(Loading, CancelChangesNothing) {
  state.LastFolder = "/old";
  state.NextSongLoaded = kTrue;
  controls.LoadSong.click.raise();
  EXPECT_THAT(panel.silent_errors, ElementsAre(RuntimeErrorKind::Cancelled));
  EXPECT_EQ(controls.PlayList.ListCount(), 0);
  EXPECT_EQ(state.LastFolder, "/old");
  EXPECT_EQ(state.NextSongLoaded, kTrue);
  EXPECT_THAT(panel.messages, IsEmpty());
}

TEST_F(Loading, TheNextSongIsLoadedAgain) {
  state.NextSongLoaded = kTrue;
  panel.choose("/music/a.mp3");
  EXPECT_EQ(state.NextSongLoaded, kFalse);
}

TEST_F(Loading, ARefusedFileRepeatsTheNumberAndOverwritesTheEntry) {
  panel.choose("/music/a.mp3");
  panel.choose("/music/b.mp3");
  panel.choose("/music/bad.mp3");
  EXPECT_EQ(state.SongCount, 2);
  EXPECT_EQ(controls.PlayList.List(2), "02 - ");
  EXPECT_EQ(table.at(2).SongFile, "");
  EXPECT_EQ(table.at(2).SongLength, 0);
}

TEST_F(Loading, ARefusedFirstFileGoesToEntryZero) {
  panel.choose("/music/bad.mp3");
  EXPECT_EQ(state.SongCount, 0);
  EXPECT_THAT(panel.lines(controls.PlayList), ElementsAre("00 - "));
  EXPECT_EQ(controls.SongLabel.Caption.get(), "");
}

TEST_F(Loading, SongTwoHundredAndOneGetsALineButNoEntry) {
  panel.add_songs(200);
  EXPECT_EQ(table.at(200).SongFile, test::TestPanel::song_path(199));
  state.NextSongLoaded = kTrue;
  panel.add_song("/music/more.mp3", 1000);
  EXPECT_EQ(controls.PlayList.List(200), "201 - /music/more.mp3");
  EXPECT_EQ(controls.ListAux2.ListCount(), 201);
  EXPECT_THAT(panel.silent_errors, ElementsAre(RuntimeErrorKind::Range));
  EXPECT_EQ(state.NextSongLoaded, kTrue);  // the handler stopped there
  EXPECT_EQ(table.at(200).SongFile, test::TestPanel::song_path(199));
}

TEST_F(Loading, ANameWithoutFolderEndsTheHandler) {
  panel.choose("a.mp3");
  EXPECT_THAT(panel.silent_errors, ElementsAre(RuntimeErrorKind::InvalidValue));
  EXPECT_EQ(controls.PlayList.ListCount(), 0);
}

TEST_F(Loading, FilesOfTheRootFolder) {
  panel.sound.files.lengths["/a.mp3"] = 1000;
  panel.sound.files.lengths["//a.mp3"] = 1000;
  panel.choose("/a.mp3");
  EXPECT_EQ(state.LastFolder, "");
  panel.choose(several("/", {"a.mp3"}));
  EXPECT_EQ(state.LastFolder, "/");
  EXPECT_EQ(controls.PlayList.List(1), "02 - //a.mp3");  // plainly joined
}

TEST_F(Loading, BytesThatAreNoTextComeThrough) {
  panel.sound.files.lengths["/m\xff/\xc3.mp3"] = 1000;
  panel.choose(several("/m\xff", {"\xc3.mp3", "none.mp3"}));
  EXPECT_EQ(state.LastFolder, "/m\xff");
  EXPECT_EQ(table.at(1).SongFile, "/m\xff/\xc3.mp3");
}

TEST_F(Loading, TheScratchListHoldsOneCharacterALine) {
  panel.choose(several("/m", {"\u00e9"}));
  EXPECT_THAT(panel.lines(controls.ListAux), ElementsAre("/", "m", "", "\u00e9"));
}

TEST_F(Loading, ALastNameOfOneCharacterIsPassedOver) {
  panel.sound.files.lengths["/m/ab"] = 1000;
  panel.sound.files.lengths["/m/x"] = 1000;
  panel.choose(several("/m", {"ab", "x"}));
  EXPECT_THAT(panel.lines(controls.PlayList), ElementsAre("01 - /m/ab"));
}

TEST_F(Loading, MoreNamesThanTheArrayHoldsAddNothing) {
  std::string result = "/music";
  for (int i = 0; i < 202; ++i) result.append(1, '\0').append("a.mp3");
  panel.choose(result);
  EXPECT_THAT(panel.silent_errors, ElementsAre(RuntimeErrorKind::Range));
  EXPECT_EQ(controls.PlayList.ListCount(), 0);
  EXPECT_EQ(state.LastFolder, "/music");
}

TEST_F(Loading, DroppedFilesGoTheSameWay) {
  controls.Painel.files_dropped.raise("/music/a.mp3");
  controls.Painel.files_dropped.raise(several("/music", {"c.mp3", "b.mp3"}));
  EXPECT_THAT(panel.lines(controls.PlayList),
              ElementsAre("01 - /music/a.mp3", "02 - /music/b.mp3", "03 - /music/c.mp3"));
  EXPECT_THAT(panel.dialog.shows, IsEmpty());
}

TEST_F(Loading, TheButtonLooksPressedWhileItIs) {
  controls.LoadSong.press.raise();
  EXPECT_EQ(controls.LoadSong.BackColor, 0xE0E0E0);
  controls.LoadSong.release.raise();
  EXPECT_EQ(controls.LoadSong.BackColor, 0x808080);
}

TEST_F(Loading, ThePanelGoesOnWhileTheDialogIsOpen) {
  panel.dialog.while_open = [&] { panel.advance(200); };
  panel.choose("/music/a.mp3");
  EXPECT_EQ(controls.ClockLabel.Caption.get(), "12:34");
}

}  // namespace
}  // namespace tandem

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "fakes/panel_test.h"

namespace tandem {
namespace {

using test::PanelTest;
using testing::ElementsAre;
using testing::IsEmpty;

struct Removing : PanelTest {
  void remove(std::int32_t line) { controls.PlayList.user_double_click(line); }
};

TEST_F(Removing, LineThreeOfTwelveRenumbersTheRest) {
  panel.add_songs(12);
  state.CurrentSong = 7;
  remove(2);
  EXPECT_EQ(controls.PlayList.ListCount(), 11);
  EXPECT_EQ(controls.PlayList.List(1), "02 - /music/b.mp3");
  EXPECT_EQ(controls.PlayList.List(2), "03 - /music/d.mp3");
  EXPECT_EQ(controls.PlayList.List(8), "09 - /music/j.mp3");
  EXPECT_EQ(controls.PlayList.List(9), "10 - /music/k.mp3");
  EXPECT_EQ(controls.PlayList.List(10), "11 - /music/l.mp3");
  EXPECT_EQ(panel.lines(controls.ListAux2), panel.lines(controls.PlayList));
  EXPECT_EQ(table.at(3).SongFile, "/music/d.mp3");
  EXPECT_EQ(table.at(3).SongLength, test::TestPanel::song_length(3));
  EXPECT_EQ(table.at(11).SongFile, "/music/l.mp3");
  EXPECT_EQ(table.at(12).SongFile, "");
  EXPECT_EQ(state.CurrentSong, 6);
  EXPECT_EQ(state.SongCount, 11);
}

TEST_F(Removing, ALineAfterTheCurrentSongLeavesItsNumber) {
  panel.add_songs(5);
  state.CurrentSong = 2;
  remove(3);
  EXPECT_EQ(state.CurrentSong, 2);
}

TEST_F(Removing, TheCurrentSongItselfLeavesItsNumber) {
  panel.add_songs(5);
  state.CurrentSong = 2;
  remove(1);
  EXPECT_EQ(state.CurrentSong, 2);
}

TEST_F(Removing, ThePlayingLineStaysUntilStop) {
  panel.add_songs(3);
  panel.select(1);
  controls.PLAY.click.raise();
  panel.sound.calls.clear();
  remove(1);
  EXPECT_EQ(controls.PlayList.ListCount(), 3);
  EXPECT_THAT(panel.sound.calls_of({"ListTimer"}), IsEmpty());
  controls.STOPBtn.click.raise();
  remove(1);
  EXPECT_EQ(controls.PlayList.ListCount(), 2);
  EXPECT_EQ(controls.PlayList.List(1), "02 - /music/c.mp3");
}

TEST_F(Removing, AnotherLineGoesWhilePlaying) {
  panel.add_songs(3);
  panel.select(1);
  controls.PLAY.click.raise();
  remove(0);
  EXPECT_EQ(state.CurrentSong, 1);
  EXPECT_EQ(controls.PlayList.List(0), "01 - /music/b.mp3");
}

TEST_F(Removing, TheNextSongAddedContinuesTheNumbering) {
  panel.add_songs(3);
  remove(0);
  EXPECT_EQ(state.SongCount, controls.PlayList.ListCount());
  panel.add_song("/music/new.mp3", 1000);
  EXPECT_EQ(controls.PlayList.List(2), "03 - /music/new.mp3");
}

TEST_F(Removing, TheListTimerGoesOffAndOnAndTheNextSongStaysLoaded) {
  panel.add_songs(3);
  state.NextSongLoaded = kTrue;
  panel.sound.calls.clear();
  remove(0);
  EXPECT_THAT(panel.sound.calls, ElementsAre("ListTimer.Enabled(False)", "ListTimer.Enabled(True)"));
  EXPECT_EQ(state.NextSongLoaded, kTrue);
}

TEST_F(Removing, KeepsNumbersOfThreeDigits) {
  panel.add_songs(102);
  remove(0);
  EXPECT_EQ(controls.PlayList.List(8), "09 - /music/j.mp3");
  EXPECT_EQ(controls.PlayList.List(98), "99 - /music/99.mp3");
  EXPECT_EQ(controls.PlayList.List(99), "100 - /music/100.mp3");
  EXPECT_EQ(controls.PlayList.List(100), "101 - /music/101.mp3");
}

TEST_F(Removing, ALineBeyondTheTableIsLostFromTheListsAlone) {
  panel.add_songs(201);
  const std::int16_t count = state.SongCount;
  panel.silent_errors.clear();
  remove(200);
  EXPECT_THAT(panel.silent_errors, ElementsAre(RuntimeErrorKind::Range));
  EXPECT_EQ(controls.PlayList.ListCount(), 200);
  EXPECT_EQ(state.SongCount, count);
  EXPECT_FALSE(panel.program.sound.ListTimer->Enabled());
}

}  // namespace
}  // namespace tandem

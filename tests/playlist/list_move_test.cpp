#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "fakes/panel_test.h"

namespace tandem {
namespace {

using test::PanelTest;
using testing::ElementsAre;

struct Moving : PanelTest {
  void up() { controls.UpList.click.raise(); }
  void down() { controls.DownList.click.raise(); }
};

TEST_F(Moving, UpExchangesLinesAndEntries) {
  panel.add_songs(3);
  panel.select(2);
  up();
  EXPECT_THAT(panel.lines(controls.PlayList),
              ElementsAre("01 - /music/a.mp3", "02 - /music/c.mp3", "03 - /music/b.mp3"));
  EXPECT_THAT(panel.lines(controls.ListAux2),
              ElementsAre("01 - /music/a.mp3", "03 - /music/c.mp3", "02 - /music/b.mp3"));  // numbers go along
  EXPECT_EQ(controls.PlayList.ListIndex(), 1);
  EXPECT_EQ(table.at(2).SongFile, "/music/c.mp3");
  EXPECT_EQ(table.at(2).SongLength, test::TestPanel::song_length(2));
  EXPECT_EQ(table.at(3).SongFile, "/music/b.mp3");
}

TEST_F(Moving, DownExchangesLinesAndEntries) {
  panel.add_songs(3);
  panel.select(0);
  down();
  EXPECT_THAT(panel.lines(controls.PlayList),
              ElementsAre("01 - /music/b.mp3", "02 - /music/a.mp3", "03 - /music/c.mp3"));
  EXPECT_EQ(controls.PlayList.ListIndex(), 1);
  EXPECT_EQ(table.at(1).SongFile, "/music/b.mp3");
  EXPECT_EQ(table.at(2).SongFile, "/music/a.mp3");
}

TEST_F(Moving, LineTenUpIsNumberedNine) {
  panel.add_songs(11);
  panel.select(9);
  up();
  EXPECT_THAT(panel.lines(controls.PlayList, 8),
              ElementsAre("09 - /music/j.mp3", "10 - /music/i.mp3", "11 - /music/k.mp3"));
}

TEST_F(Moving, LineNineDownIsNumberedTen) {
  panel.add_songs(11);
  panel.select(8);
  down();
  EXPECT_THAT(panel.lines(controls.PlayList, 8),
              ElementsAre("09 - /music/j.mp3", "10 - /music/i.mp3", "11 - /music/k.mp3"));
}

TEST_F(Moving, ThreeDigitNumbersLeaveTheHyphen) {
  panel.add_songs(101);
  panel.select(1);
  up();
  EXPECT_THAT(panel.lines(controls.PlayList, 98),
              ElementsAre("99 - /music/98.mp3", "100 - - /music/99.mp3", "101 - - /music/100.mp3"));
}

TEST_F(Moving, MovedTwiceTheTwinsStaleNumbersDoNoHarm) {
  panel.add_songs(12);
  panel.select(10);
  up();
  up();
  up();
  EXPECT_THAT(panel.lines(controls.PlayList, 7),
              ElementsAre("08 - /music/k.mp3", "09 - /music/h.mp3", "10 - /music/i.mp3", "11 - /music/j.mp3",
                          "12 - /music/l.mp3"));
  EXPECT_EQ(table.at(8).SongFile, "/music/k.mp3");
  EXPECT_EQ(table.at(11).SongFile, "/music/j.mp3");
}

TEST_F(Moving, UpOnTheTopLineExchangesEntriesZeroAndOneAndBack) {
  panel.add_songs(2);
  panel.select(0);
  const auto lines = panel.lines(controls.PlayList);
  up();
  EXPECT_EQ(panel.lines(controls.PlayList), lines);
  EXPECT_EQ(panel.lines(controls.ListAux2), lines);
  EXPECT_EQ(controls.PlayList.ListIndex(), 0);
  EXPECT_EQ(table.at(0).SongFile, "/music/a.mp3");
  EXPECT_EQ(table.at(1).SongFile, "");
  up();
  EXPECT_EQ(table.at(0).SongFile, "");
  EXPECT_EQ(table.at(1).SongFile, "/music/a.mp3");
}

TEST_F(Moving, UpWithoutASelectionExchangesEntriesZeroAndOne) {
  panel.add_songs(2);
  up();
  EXPECT_EQ(table.at(0).SongFile, "/music/a.mp3");
  EXPECT_EQ(controls.PlayList.ListIndex(), -1);
}

TEST_F(Moving, DownOnTheBottomLineOrNoneExchangesEntriesOneAndTwo) {
  panel.add_songs(3);
  panel.select(2);
  down();
  EXPECT_EQ(controls.PlayList.List(2), "03 - /music/c.mp3");
  EXPECT_EQ(table.at(1).SongFile, "/music/b.mp3");
  EXPECT_EQ(table.at(2).SongFile, "/music/a.mp3");
  controls.PlayList.put_ListIndex(-1);
  down();
  EXPECT_EQ(table.at(1).SongFile, "/music/a.mp3");
}

TEST_F(Moving, EveryPressDisablesNextUnloadsTheNextSongAndStartsTheListTimer) {
  panel.add_songs(2);
  for (Button* button : {&controls.UpList, &controls.DownList}) {
    controls.NextBtn.Enabled = true;
    state.NextSongLoaded = kTrue;
    panel.program.sound.ListTimer->put_Enabled(false);
    button->click.raise();
    EXPECT_FALSE(controls.NextBtn.Enabled);
    EXPECT_EQ(state.NextSongLoaded, kFalse);
    EXPECT_TRUE(panel.program.sound.ListTimer->Enabled());
  }
}

TEST_F(Moving, UpSwitchesTheListTimerOffOnlyIfItIsOnAndDownAlways) {
  panel.add_songs(2);
  panel.sound.calls.clear();
  up();
  up();
  EXPECT_THAT(panel.sound.calls,
              ElementsAre("ListTimer.Enabled(True)", "ListTimer.Enabled(False)", "ListTimer.Enabled(True)"));
  panel.program.sound.ListTimer->put_Enabled(false);
  panel.sound.calls.clear();
  down();
  EXPECT_THAT(panel.sound.calls, ElementsAre("ListTimer.Enabled(False)", "ListTimer.Enabled(True)"));
}

TEST_F(Moving, ALongerTwinFillsTheVisibleList) {
  panel.add_songs(2);
  controls.ListAux2.AddItem("07 - /music/left.mp3");
  panel.select(1);
  up();
  EXPECT_THAT(panel.lines(controls.PlayList),
              ElementsAre("01 - /music/b.mp3", "02 - /music/a.mp3", "03 - /music/left.mp3"));
}

TEST_F(Moving, BeyondTheTableIsARangeErrorAfterTheLinesHaveMoved) {
  panel.add_songs(201);
  panel.silent_errors.clear();
  panel.select(200);
  up();
  EXPECT_THAT(panel.silent_errors, ElementsAre(RuntimeErrorKind::Range));
  EXPECT_EQ(controls.PlayList.ListIndex(), 199);
  EXPECT_FALSE(controls.NextBtn.Enabled);
}

}  // namespace
}  // namespace tandem

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "fakes/panel_test.h"
#include "playlist/song_texts.h"

namespace tandem {
namespace {

using test::PanelTest;
using testing::ElementsAre;
using testing::IsEmpty;

struct Displaying : PanelTest {
  void show(const std::string& path, std::int32_t length) {
    panel.program.SongTable.at(7) = {path, length};
    panel.program.display.ShowSongInfo(7);
  }
};

using Refreshing = Displaying;

TEST_F(Displaying, TitleInCapitalsAndTotalTime) {
  show("/music/a song.mp3", 225000);
  EXPECT_EQ(controls.SongLabel.Caption.get(), "A SONG.MP3");
  EXPECT_FALSE(controls.SongLabel.Scrolling);
  EXPECT_EQ(controls.LblTempTot.Caption.get(), "03:45");
  EXPECT_EQ(state.LoopIndex, 7);
}

TEST_F(Displaying, APathWithoutFolderIsTheTitleItself) {
  show("a.mp3", 1000);
  EXPECT_EQ(controls.SongLabel.Caption.get(), "A.MP3");
  EXPECT_EQ(state.LoopIndex, 0);
}

TEST_F(Displaying, AnEmptyEntryIsAnEmptyTitle) {
  show("", 0);
  EXPECT_EQ(controls.SongLabel.Caption.get(), "");
  EXPECT_EQ(controls.LblTempTot.Caption.get(), "00:00");
}

TEST_F(Displaying, ThirteenCharactersDoNotScroll) {
  controls.SongLabel.Scrolling = true;
  show("/123456789.mp3", 0);
  EXPECT_EQ(controls.SongLabel.Caption.get(), "123456789.MP3");
  EXPECT_FALSE(controls.SongLabel.Scrolling);
}

TEST_F(Displaying, FourteenScrollAfterFourteenBlanks) {
  show("/1234567890.mp3", 0);
  EXPECT_EQ(controls.SongLabel.Caption.get(), std::string(14, ' ') + "1234567890.MP3");
  EXPECT_TRUE(controls.SongLabel.Scrolling);
}

TEST_F(Displaying, ATitleThatBeginsWithFourBlanksLeavesTheScrollingAsItIs) {
  show("/    1234567890.mp3", 0);
  EXPECT_EQ(controls.SongLabel.Caption.get(), "    1234567890.MP3");
  EXPECT_FALSE(controls.SongLabel.Scrolling);
}

TEST_F(Displaying, FromTenMinutesOnTheTextIsWrong) {
  show("/a.mp3", 754000);
  EXPECT_EQ(controls.LblTempTot.Caption.get(), "012:3");
}

TEST_F(Displaying, WhatNamesTheSongHearsOfIt) {
  std::string named;
  panel.program.display.song_shown.connect([&](const std::string& file) { named = file; });
  show("/music/a.mp3", 0);
  EXPECT_EQ(named, "/music/a.mp3");
}

TEST_F(Displaying, ASongBeyondTheTableIsARangeError) {
  EXPECT_THROW(panel.program.display.ShowSongInfo(201), RuntimeError);
}

TEST_F(Refreshing, TheClockEveryFifthOfASecond) {
  panel.advance(190);
  EXPECT_EQ(controls.ClockLabel.Caption.get(), "");
  panel.advance(10);
  EXPECT_EQ(controls.ClockLabel.Caption.get(), "12:34");
}

TEST_F(Refreshing, PositionOfTheActiveDeck) {
  controls.Slider1.put_maximum(200000);
  state.ActiveDeck = 1;
  panel.sound.deck[0]->position = 5000;
  panel.sound.deck[1]->position = 65000;
  panel.advance(200);
  EXPECT_EQ(controls.LblPosition.Caption.get(), "01:05");
  EXPECT_EQ(controls.Slider1.Position, 65000);
}

TEST_F(Refreshing, TheCutTextStaysThoughTheSliderMoves) {
  controls.Slider1.put_maximum(2000000);
  panel.sound.deck[0]->position = 754000;
  panel.advance(200);
  EXPECT_EQ(controls.LblPosition.Caption.get(), "012:3");
}

TEST_F(Refreshing, APositionOfZeroChangesNothing) {
  controls.LblPosition.Caption = "01:23";
  controls.Slider1.Position = 40;
  panel.sound.deck[0]->position = 0;
  panel.advance(200);
  EXPECT_EQ(controls.LblPosition.Caption.get(), "01:23");
  EXPECT_EQ(controls.Slider1.Position, 40);
  panel.sound.deck[0]->position = 1;
  panel.advance(200);
  EXPECT_EQ(controls.LblPosition.Caption.get(), "00:00");
  EXPECT_EQ(controls.Slider1.Position, 1);
}

TEST_F(Refreshing, AHeldSliderFreezesThePositionButNotTheClock) {
  controls.LblPosition.Caption = "01:23";
  controls.Slider1.user_press();
  panel.sound.deck[0]->position = 5000;
  panel.advance(200);
  EXPECT_EQ(controls.LblPosition.Caption.get(), "01:23");
  EXPECT_EQ(controls.Slider1.Position, 0);
  EXPECT_EQ(controls.ClockLabel.Caption.get(), "12:34");
}

TEST_F(Refreshing, DuringAMixThePositionIsStillTheOutgoingSongs) {
  panel.add_songs(3);
  state.MixTimeMs = 2500;
  controls.PLAY.click.raise();
  panel.tick();
  panel.sound.deck[0]->position = 198000;
  panel.advance(200);
  EXPECT_EQ(controls.SongLabel.Caption.get(), "B.MP3");
  EXPECT_EQ(controls.LblPosition.Caption.get(), "03:18");
}

TEST_F(Refreshing, AfterStopThePositionIsZeroWhileTitleAndTotalTimeStay) {
  panel.add_songs(1);
  controls.PLAY.click.raise();
  panel.sound.deck[0]->position = 5000;
  panel.advance(200);
  panel.sound.deck[0]->position = 0;  // the reader rewinds when it is muted
  controls.STOPBtn.click.raise();
  panel.advance(1000);
  EXPECT_EQ(controls.LblPosition.Caption.get(), "00:00");
  EXPECT_EQ(controls.SongLabel.Caption.get(), "A.MP3");
  EXPECT_EQ(controls.LblTempTot.Caption.get(), "03:20");
}

}  // namespace
}  // namespace tandem

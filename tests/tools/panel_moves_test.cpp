#include "script/panel_moves.h"

#include <gtest/gtest.h>

#include <string>

#include "fakes/panel_test.h"
#include "script/unknown_word.h"

namespace tandem {
namespace {

using test::PanelTest;

struct Moves : PanelTest {
  PanelMoves moves{panel.controls};
};

TEST_F(Moves, AClickIsPressClickAndRelease) {
  std::string events;
  controls.LoadSong.press.connect([&] { events += "press "; });
  controls.LoadSong.click.connect([&] { events += "click "; });
  controls.LoadSong.release.connect([&] { events += "release"; });
  moves.click("LoadSong");
  EXPECT_EQ(events, "press click release");
}

TEST_F(Moves, PressAndReleaseAloneAreNoClick) {
  moves.press("Command2");
  EXPECT_EQ(controls.Command2.BackColor, clGrey);
  moves.release("Command2");
  EXPECT_EQ(controls.Command2.BackColor, clSilver);
  EXPECT_FALSE(controls.TimerDelay.Enabled());
}

TEST_F(Moves, ADisabledControlIgnoresThemAll) {
  panel.add_songs(2);
  controls.NextBtn.Enabled = false;
  moves.click("NextBtn");
  EXPECT_EQ(panel.state.CurrentSong, 0);
  controls.Volume.Enabled = false;
  moves.move("Volume", 5);
  EXPECT_EQ(controls.Volume.Value, 32768);
  controls.MMLEDSpin1.Enabled = false;
  moves.up("MMLEDSpin1");
  EXPECT_EQ(controls.MMLEDSpin1.Value, 7);
  controls.PlayList.Enabled = false;
  moves.select("PlayList", 1);
  EXPECT_EQ(controls.PlayList.ListIndex(), -1);
}

TEST_F(Moves, AHiddenControlTakesThem) {
  controls.sl0[3].Visible = false;
  moves.move("sl0(3)", 4);
  EXPECT_EQ(controls.sl0[3].Position, 4);
  controls.UpList.Visible = false;
  moves.click("UpList");
  EXPECT_FALSE(controls.NextBtn.Enabled);
}

TEST_F(Moves, EveryDisplayCanBeClicked) {
  Twips width = 3930;
  for (const char* name : {"MMPanelX1(0)", "MMPanelX1(1)", "SongLabel", "LblPosition", "LblTempTot", "ClockLabel",
                           "MMLEDLABELX1", "MMLEDLABELX2", "MMLEDLABELX3", "MeterVol"}) {
    moves.click(name);
    EXPECT_EQ(controls.Painel.Width, width) << name;
    width = width == 3930 ? 9105 : 3930;
  }
}

TEST_F(Moves, LampsKnowTheClickAlone) {
  moves.press("AMLed1");
  moves.release("AMLed1");
  EXPECT_EQ(controls.AMLed1.LEDColor, kLeadDark);
  moves.click("AMLed1");
  EXPECT_EQ(controls.AMLed1.LEDColor, kLeadLit);
}

TEST_F(Moves, ADragIsPressChangesRelease) {
  std::string events;
  controls.SliderP.press.connect([&] { events += "press "; });
  controls.SliderP.change.connect([&] { events += std::to_string(controls.SliderP.Position) + " "; });
  controls.SliderP.release.connect([&] { events += "release"; });
  moves.drag("SliderP", {5, 10, -3});
  EXPECT_EQ(events, "press 5 10 -3 release");
}

TEST_F(Moves, SlidersCanBeHeld) {
  moves.press("Slider1");
  EXPECT_EQ(panel.state.SeekDragging, kTrue);
  moves.move("Slider1", 60);
  moves.release("Slider1");
  EXPECT_EQ(panel.state.SeekDragging, kFalse);
  EXPECT_EQ(panel.sound.calls.back(), "AudioFile(0).Position(60)");
}

TEST_F(Moves, MovesNotifyAsByTheMouse) {
  moves.move("BufferSwitch", 1);
  EXPECT_EQ(panel.state.BufferMode, 1);
  moves.move("MMLEDSpin7", 2000);
  EXPECT_EQ(controls.MMLEDX6.LEDColor, clOlive);
  moves.move("Volume", 16384);
  EXPECT_EQ(controls.MeterVol.Progress, 50);
}

TEST_F(Moves, SpinnersHaveButtons) {
  moves.up("MMLEDSpin2");
  EXPECT_EQ(controls.MMLEDSpin2.Value, 128);  // from the analyser's 64
  moves.down("MMLEDSpin1");
  EXPECT_EQ(controls.MMLEDSpin1.Value, 6);
}

TEST_F(Moves, ListsAreClickedOnTheirLines) {
  panel.add_songs(3);
  moves.select("PlayList", 1);
  EXPECT_EQ(panel.state.SelectedEntry, 1);
  moves.double_click("PlayList", 0);
  EXPECT_EQ(controls.PlayList.ListCount(), 2);
}

TEST_F(Moves, WhatCannotBeDoneIsReported) {
  panel.add_songs(1);
  EXPECT_THROW(moves.click("Nothing"), UnknownWord);
  EXPECT_THROW(moves.click("PlayList"), UnknownWord);
  EXPECT_THROW(moves.click("Volume"), UnknownWord);
  EXPECT_THROW(moves.click("dbLabel0(0)"), UnknownWord);
  EXPECT_THROW(moves.move("PLAY", 1), UnknownWord);
  EXPECT_THROW(moves.drag("PLAY", {1}), UnknownWord);
  EXPECT_THROW(moves.up("Volume"), UnknownWord);
  EXPECT_THROW(moves.select("PlayList", 1), UnknownWord);
  EXPECT_THROW(moves.select("PLAY", 0), UnknownWord);
}

}  // namespace
}  // namespace tandem

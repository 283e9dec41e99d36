#include "controls/panel_controls.h"

#include <gtest/gtest.h>

#include "controls/panel_groups.h"

namespace tandem {
namespace {

struct NoDialog : FileDialog {
 protected:
  std::string ask_open() override { return {}; }
  std::string ask_save() override { return {}; }
};

struct DesignedPanel : testing::Test {
  NoDialog dialog;
  TimerQueue timers;
  PanelControls c{dialog, timers};
};

TEST_F(DesignedPanel, HasItsTransportAtRest) {
  EXPECT_EQ(c.PLAY.Picture, 0);
  EXPECT_EQ(c.PAUSE.Picture, 2);
  EXPECT_EQ(c.STOPBtn.Picture, 5);
  EXPECT_EQ(c.PAUSE.BackColor, clOlive);
  EXPECT_EQ(c.NextBtn.BackColor, 0x0040C0);
  EXPECT_TRUE(c.NextBtn.Enabled);
}

TEST_F(DesignedPanel, TheListIsInFront) {
  for (const Control* shown :
       {static_cast<Control*>(&c.PlayList), static_cast<Control*>(&c.LoadList), static_cast<Control*>(&c.SaveList),
        static_cast<Control*>(&c.UpList), static_cast<Control*>(&c.DownList)})
    EXPECT_TRUE(shown->Visible);
  EXPECT_FALSE(c.MMPanelX1[0].Visible);
  EXPECT_FALSE(c.ListAux.Visible);
  EXPECT_FALSE(c.ListAux2.Visible);
  EXPECT_EQ(c.ShowPlayList.BackColor, 0xFFFF00);
}

TEST_F(DesignedPanel, TheReadOutShowsTheVolume) {
  EXPECT_EQ(c.INDIC.Caption.get(), "VOLUME");
  EXPECT_EQ(c.INDIC.LEDColor, clYellow);
  EXPECT_EQ(c.INDIC.NumChars, 9);
  EXPECT_TRUE(c.MeterVol.Visible);
  EXPECT_EQ(c.MeterVol.Progress, 100);
  for (const Lamp* sign : {&c.LED1, &c.LED2, &c.LED3}) EXPECT_FALSE(sign->Visible);
  EXPECT_EQ(c.LED1.LEDColor, clMaroon);
  EXPECT_EQ(c.LED2.LEDColor, clTeal);
  EXPECT_EQ(c.LED3.LEDColor, clMaroon);
}

TEST_F(DesignedPanel, HasOneLeadTimeLampLit) {
  EXPECT_EQ(c.AMLedOff.LEDColor, 16512);
  EXPECT_EQ(c.AMLed1.LEDColor, 16512);
  EXPECT_EQ(c.AMLed2.LEDColor, 33023);
  EXPECT_EQ(c.AMLed3.LEDColor, 16512);
}

TEST_F(DesignedPanel, HasTheRangesAndValuesOfTheBoard) {
  const struct {
    int digits, minimum, maximum, value;
  } expected[] = {{2, 1, 16, 7}, {4, 8, 2048, 512}, {3, 1, 200, 20},     {2, 0, 50, 25},
                  {2, 0, 5, 1},  {2, 1, 16, 1},     {4, 50, 22050, 500}, {2, 0, 50, 1}};
  for (std::size_t i = 0; i < kSpinners.size(); ++i) {
    const Spinner& spinner = c.*kSpinners[i];
    EXPECT_EQ(spinner.Digits, expected[i].digits);
    EXPECT_EQ(spinner.minimum(), expected[i].minimum);
    EXPECT_EQ(spinner.maximum(), expected[i].maximum);
    EXPECT_EQ(spinner.Value, expected[i].value);
  }
  const struct { int positions, position; } switches[] = {{6, 3}, {7, 1}, {4, 1}, {4, 1}};
  for (std::size_t i = 0; i < kBoardSwitches.size(); ++i) {
    EXPECT_EQ((c.*kBoardSwitches[i]).NumPositions(), switches[i].positions);
    EXPECT_EQ((c.*kBoardSwitches[i]).Position, switches[i].position);
  }
  EXPECT_EQ(c.MMSwitchX1.NumPositions(), 3);
  for (const auto lamp : kOptionLamps) EXPECT_EQ((c.*lamp).LEDColor, clGreen);
  EXPECT_EQ(c.MMLEDX6.LEDColor, clOlive);
}

TEST_F(DesignedPanel, HasTheRangesOfSlidersAndDials) {
  EXPECT_EQ(c.SliderP.minimum(), -20);
  EXPECT_EQ(c.SliderP.maximum(), 20);
  EXPECT_EQ(c.SliderP.LineSize, 10);
  EXPECT_EQ(c.SliderP.Position, 0);
  EXPECT_EQ(c.Slider1.maximum(), 100);
  EXPECT_EQ(c.Volume.maximum(), 32768);
  EXPECT_EQ(c.Volume.Value, 32768);
  EXPECT_EQ(c.BufferSwitch.Position, 0);
  EXPECT_EQ(c.Bypass.Position, 1);
  for (std::size_t band = 0; band < kBands; ++band) {
    EXPECT_EQ(c.sl0[band].minimum(), -12);
    EXPECT_EQ(c.sl0[band].maximum(), 12);
    EXPECT_EQ(c.sl0[band].Position, 0);
    EXPECT_EQ(c.dbLabel0[band].Caption.get(), " 0");
  }
}

TEST_F(DesignedPanel, HasItsCaptions) {
  EXPECT_EQ(c.MMPanelX1[0].Caption, "10 BANDS EQUALIZER");
  EXPECT_EQ(c.MMLEDLABELX1.Caption.get(), "SONG:");
  EXPECT_EQ(c.MMLEDLABELX2.Caption.get(), "COUNTER:");
  EXPECT_EQ(c.MMLEDLABELX3.Caption.get(), "TIME:");
  EXPECT_EQ(c.LoadSong.Caption, "SONG");
  EXPECT_EQ(c.ShowPlayList.Caption, "Playlist");
  EXPECT_EQ(c.ShowControls.Caption, "Controls");
  EXPECT_EQ(c.LoadList.Caption, "Open");
  EXPECT_EQ(c.SaveList.Caption, "Save");
  EXPECT_EQ(c.SongLabel.NumChars, 15);
}

TEST_F(DesignedPanel, TheDelayTimerTicksOnceItsIntervalIsOverAndOnlyWhileEnabled) {
  int ticks = 0;
  c.TimerDelay.tick.connect([&] { ++ticks; });
  timers.advance(5000);
  EXPECT_EQ(ticks, 0);
  c.TimerDelay.put_Enabled(true);
  timers.advance(5800);
  c.TimerDelay.put_Enabled(true);  // enabling again does not restart the interval
  timers.advance(6500);
  EXPECT_EQ(ticks, 1);
  c.TimerDelay.put_Enabled(false);
  timers.advance(9000);
  EXPECT_EQ(ticks, 1);
}

}  // namespace
}  // namespace tandem

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <utility>

#include "base/whole_file.h"
#include "fakes/panel_test.h"

namespace tandem {
namespace {

using test::PanelTest;
using testing::ElementsAre;

struct WholePanel : PanelTest {
  WindowFrame& window = panel.controls.Painel;

  WholePanel() { panel.program.panel.load(); }
  void click_display() { controls.MMPanelX1[1].click.raise(); }
  bool small() const { return window.Width == 3930 && window.Height == 2475; }
  bool full() const { return window.Width == 9105 && window.Height == 3870; }
};

using ShutDown = WholePanel;

TEST_F(WholePanel, BecomesSmallInItsPlace) {
  window.Left = 100;
  window.Top = 200;
  click_display();
  EXPECT_TRUE(small());
  EXPECT_EQ(window.Left, 100);
  EXPECT_EQ(window.Top, 200);
}

TEST_F(WholePanel, BecomesFullInTheMiddleOfTheScreen) {
  click_display();
  click_display();
  EXPECT_TRUE(full());
  EXPECT_EQ(window.Top, (1080 * 15 - 3870) / 2);
  EXPECT_EQ(window.Left, (1920 * 15 - 9105) / 2);
}

TEST_F(WholePanel, AnyOtherWidthCountsAsSmall) {
  for (const Twips width : {9104, 9106, 1, 20000}) {
    window.Width = width;
    click_display();
    EXPECT_TRUE(full()) << width;
  }
}

TEST_F(WholePanel, TheHeightDoesNotCount) {
  controls.ShowControls.click.raise();
  click_display();
  EXPECT_TRUE(small());
}

TEST_F(WholePanel, TheBoardIsReportedHiddenAndShownByTheNextClick) {
  controls.ShowControls.click.raise();
  click_display();
  EXPECT_EQ(controls.ShowControls.BackColor, clGreen);
  click_display();
  controls.ShowControls.click.raise();
  EXPECT_EQ(window.Height, 6390);
  EXPECT_EQ(controls.ShowControls.BackColor, clLime);
}

TEST_F(WholePanel, EveryDisplayTogglesTheSize) {
  PanelControls& c = controls;
  const std::pair<const char*, Notification<>*> displays[] = {
      {"MMPanelX1(0)", &c.MMPanelX1[0].click}, {"SongLabel", &c.SongLabel.click},
      {"MMLEDLABELX1", &c.MMLEDLABELX1.click}, {"MMLEDLABELX2", &c.MMLEDLABELX2.click},
      {"MMLEDLABELX3", &c.MMLEDLABELX3.click}, {"LblPosition", &c.LblPosition.click},
      {"LblTempTot", &c.LblTempTot.click},     {"ClockLabel", &c.ClockLabel.click},
      {"MeterVol", &c.MeterVol.click}};
  bool was_small = false;
  for (const auto& [name, click] : displays) {
    click->raise();
    EXPECT_NE(small(), was_small) << name;
    was_small = !was_small;
  }
  panel.program.panel.toggle_size();
  EXPECT_FALSE(small());
}

TEST_F(WholePanel, TheReadOutDoesNotToggle) {
  controls.INDIC.click.raise();
  EXPECT_TRUE(full());
}

TEST_F(ShutDown, StopsAndClosesTheOutputThenSaves) {
  panel.add_songs(1);
  controls.PLAY.click.raise();
  controls.Volume.move(555);
  controls.sl0[4].move(-6);
  panel.sound.calls.clear();
  panel.program.panel.unload();
  EXPECT_THAT(panel.sound.calls, ElementsAre("WaveOut.stop()", "WaveOut.close()"));
  const std::string text = read_whole_file(panel.directory.file("TP.inf"));
  EXPECT_NE(text.find("-6 \r\n"), std::string::npos);
  EXPECT_NE(text.find(" 555 \r\n"), std::string::npos);
  EXPECT_TRUE(text.ends_with("/music\r\n"));
}

TEST_F(ShutDown, AFileThatCannotBeWrittenReachesTheCaller) {
  std::filesystem::create_directory(panel.directory.file("TP.inf"));
  EXPECT_THROW(panel.program.panel.unload(), RuntimeError);
  EXPECT_EQ(panel.sound.calls.back(), "WaveOut.close()");
}

TEST_F(WholePanel, TimersTickInTheirOrder) {
  panel.add_songs(2);
  controls.PLAY.click.raise();
  std::string order;
  panel.program.sound.MixTimer->tick.connect([&] { order += "mix "; });
  panel.program.sound.Timer->tick.connect([&] { order += "song "; });
  panel.program.sound.ListTimer->tick.connect([&] { order += "list "; });
  controls.TimerDelay.tick.connect([&] { order += "delay "; });
  panel.program.sound.ListTimer->put_Enabled(true);
  controls.TimerDelay.put_Enabled(true);
  panel.program.timers.advance(panel.program.timers.now() + 10000);
  EXPECT_EQ(order, "mix song list delay ");
}

TEST_F(WholePanel, AMessageDoesNotStopTheTimers) {
  panel.program.sound.EQ = std::make_unique<test::FakeEqualizer>();  // without bands
  controls.sl0[1].move(4);
  EXPECT_EQ(panel.messages.size(), 1U);
  panel.advance(200);
  EXPECT_EQ(controls.ClockLabel.Caption.get(), "12:34");
}

}  // namespace
}  // namespace tandem

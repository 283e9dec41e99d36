#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "controls/panel_groups.h"
#include "fakes/panel_test.h"

namespace tandem {
namespace {

using test::PanelTest;
using testing::ElementsAre;
using testing::IsEmpty;

struct BoardDefault : PanelTest {
  void click() { controls.MMLEDX6.click.raise(); }
};

TEST_F(BoardDefault, OliveRestoresEveryControlAndEndsYellow) {
  controls.MMSwitchX1.move(2);
  controls.MMLEDX1.click.raise();
  click();
  std::vector<std::int32_t> values;
  for (const auto spinner : kSpinners) values.push_back((controls.*spinner).Value);
  EXPECT_THAT(values, ElementsAre(8, 64, 40, 18, 1, 1, 1000, 20));
  EXPECT_EQ(controls.MMSwitch1.Position, 3);
  EXPECT_EQ(controls.MMSwitch2.Position, 1);
  EXPECT_EQ(controls.MMSwitch3.Position, 1);
  EXPECT_EQ(controls.MMSwitch4.Position, 1);
  EXPECT_EQ(controls.MMSwitchX1.Position, 0);
  std::vector<Colour> lamps;
  for (const auto lamp : kOptionLamps) lamps.push_back((controls.*lamp).LEDColor);
  EXPECT_THAT(lamps, ElementsAre(clGreen, clLime, clLime, clLime, clGreen));
  EXPECT_EQ(controls.MMLEDX6.LEDColor, clYellow);
}

TEST_F(BoardDefault, TheAnalyserIsSetFromSpinnersThenFlags) {
  click();
  const std::vector<std::string> last(panel.sound.calls.end() - 15, panel.sound.calls.end());
  EXPECT_THAT(
      last,
      ElementsAre("MMSpectrum1.Decay(8)", "MMSpectrum1.FFTLength(64)", "MMSpectrum1.VerticalScale(40)",
                  "MMSpectrum1.PeakDelay(18)", "MMSpectrum1.PeakCount(1)", "MMSpectrum1.HorizontalScale(1)",
                  "MMSpectrum1.ReferenceFrequency(1000)", "MMSpectrum1.PeakSpeed(20)", "MMSpectrum1.DrawGrid(False)",
                  "MMSpectrum1.SolidBars(False)", "MMSpectrum1.SolidMarks(False)", "MMSpectrum1.DrawMode(1)",
                  "MMSpectrum1.DrawInactive(True)", "MMSpectrum1.LogAmp(True)", "MMSpectrum1.DrawPeaks(False)"));
}

TEST_F(BoardDefault, TheSwitchesReachTheAnalyserThroughTheirNotifications) {
  click();
  std::vector<std::string> seen = panel.sound.calls_of({"MMSpectrum1"});
  seen.resize(9);
  EXPECT_THAT(seen,
              ElementsAre("MMSpectrum1.Decay(8)", "MMSpectrum1.PeakDelay(18)", "MMSpectrum1.PeakCount(1)",
                          "MMSpectrum1.ReferenceFrequency(1000)", "MMSpectrum1.PeakSpeed(20)", "MMSpectrum1.Window(1)",
                          "MMSpectrum1.Gain(1)", "MMSpectrum1.Kind(3)", "MMSpectrum1.DecayMode(1)"));
}

TEST_F(BoardDefault, TheSelectorGoesBackToTheSpectrum) {
  controls.MMSwitchX1.move(1);
  click();
  EXPECT_EQ(controls.MMSwitchX1.Position, 0);
  EXPECT_EQ(panel.program.sound.MMConnectorX1->target(MMConnectorX::Slot::Spectrum), "MMSpectrum1");
  EXPECT_TRUE(panel.program.sound.MMSpectrum1->Visible());
  EXPECT_FALSE(panel.program.sound.MMMeterX1->Visible());
}

TEST_F(BoardDefault, YellowOnlyTurnsOliveAndASecondClickRestores) {
  click();
  controls.MMLEDSpin1.Value = 3;  // turns it olive; lit again by the test
  controls.MMLEDX6.LEDColor = clYellow;
  panel.sound.calls.clear();
  click();
  EXPECT_EQ(controls.MMLEDX6.LEDColor, clOlive);
  EXPECT_EQ(controls.MMLEDSpin1.Value, 3);
  EXPECT_THAT(panel.sound.calls, IsEmpty());
  click();
  EXPECT_EQ(controls.MMLEDX6.LEDColor, clYellow);
  EXPECT_EQ(controls.MMLEDSpin1.Value, 8);
}

}  // namespace
}  // namespace tandem

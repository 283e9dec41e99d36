#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "fakes/panel_test.h"

namespace tandem {
namespace {

using test::PanelTest;
using testing::ElementsAre;
using testing::IsEmpty;

struct Selector : PanelTest {};

TEST_F(Selector, ConnectsTheSpectrum) {
  controls.MMSwitchX1.move(0);
  EXPECT_THAT(
      panel.sound.calls,
      ElementsAre("MMConnectorX1.Spectrum(MMSpectrum1)", "MMConnectorX1.LeftMeter()", "MMConnectorX1.RightMeter()",
                  "MMConnectorX1.Level()", "MMConnectorX1.Oscilloscope()", "MMSpectrum1.Enabled(True)",
                  "MMSpectrum1.Visible(True)", "MMMeterX1.Enabled(False)", "MMMeterX2.Enabled(False)",
                  "MMMeterX1.Visible(False)", "MMMeterX2.Visible(False)", "MMLevelX1.Enabled(False)",
                  "MMLevelX1.Visible(False)", "MMOscopeX1.Enabled(False)", "MMOscopeX1.Visible(False)"));
}

TEST_F(Selector, ConnectsTheMetersWithTheLevelBar) {
  controls.MMSwitchX1.move(1);
  EXPECT_THAT(panel.sound.calls,
              ElementsAre("MMConnectorX1.LeftMeter(MMMeterX1)", "MMConnectorX1.RightMeter(MMMeterX2)",
                          "MMConnectorX1.Level(MMLevelX1)", "MMConnectorX1.Spectrum()", "MMConnectorX1.Oscilloscope()",
                          "MMMeterX1.Enabled(True)", "MMMeterX2.Enabled(True)", "MMLevelX1.Enabled(True)",
                          "MMMeterX1.Visible(True)", "MMMeterX2.Visible(True)", "MMLevelX1.Visible(True)",
                          "MMSpectrum1.Enabled(False)", "MMSpectrum1.Visible(False)", "MMOscopeX1.Enabled(False)",
                          "MMOscopeX1.Visible(False)"));
}

TEST_F(Selector, ConnectsTheOscilloscope) {
  controls.MMSwitchX1.move(2);
  EXPECT_THAT(
      panel.sound.calls,
      ElementsAre("MMConnectorX1.Oscilloscope(MMOscopeX1)", "MMConnectorX1.Spectrum()", "MMConnectorX1.LeftMeter()",
                  "MMConnectorX1.RightMeter()", "MMConnectorX1.Level()", "MMOscopeX1.Enabled(True)",
                  "MMOscopeX1.Visible(True)", "MMSpectrum1.Enabled(False)", "MMSpectrum1.Visible(False)",
                  "MMMeterX1.Enabled(False)", "MMMeterX2.Enabled(False)", "MMMeterX1.Visible(False)",
                  "MMMeterX2.Visible(False)", "MMLevelX1.Enabled(False)", "MMLevelX1.Visible(False)"));
}

TEST_F(Selector, AnyOtherPositionConnectsNothing) {
  panel.program.selector.show(3);
  panel.program.selector.show(-1);
  EXPECT_THAT(panel.sound.calls, IsEmpty());
}

TEST_F(Selector, TheMetersLeaveTheAnalysersSettings) {
  controls.MMSwitchX1.move(1);
  for (const std::string& call : panel.sound.calls_of({"MMSpectrum1"}))
    EXPECT_TRUE(call.starts_with("MMSpectrum1.Enabled") || call.starts_with("MMSpectrum1.Visible")) << call;
  EXPECT_TRUE(panel.program.sound.MMMeterX1->Visible());
  EXPECT_TRUE(panel.program.sound.MMMeterX2->Visible());
  EXPECT_TRUE(panel.program.sound.MMLevelX1->Visible());
  EXPECT_FALSE(panel.program.sound.MMSpectrum1->Visible());
  EXPECT_FALSE(panel.program.sound.MMOscopeX1->Visible());
}

TEST_F(Selector, AnyChangeTurnsDefaultOlive) {
  controls.MMLEDX6.LEDColor = clYellow;
  controls.MMSwitchX1.move(0);
  EXPECT_EQ(controls.MMLEDX6.LEDColor, clOlive);
}

}  // namespace
}  // namespace tandem

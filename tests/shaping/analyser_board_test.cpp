#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "fakes/panel_test.h"

namespace tandem {
namespace {

using test::PanelTest;
using testing::ElementsAre;
using testing::IsEmpty;

struct Board : PanelTest {
  std::int32_t setting(SpectrumSetting which) const { return panel.sound.analyser->get(which); }
  void set(SpectrumSetting which, std::int32_t value) { panel.sound.analyser->put(which, value); }
  bool changed() const { return controls.MMLEDX6.LEDColor == clOlive; }
  void light_default() { controls.MMLEDX6.LEDColor = clYellow; }
  // A lamp that is dark is clicked twice: the analyser's flag follows it, and "Default" turns olive where it has the
  // colour that is not its default.
  void expect_flag(Lamp& lamp, const std::string& flag, Colour unusual) {
    panel.sound.calls.clear();
    for (const Colour colour : {clLime, clGreen}) {
      light_default();
      lamp.click.raise();
      EXPECT_EQ(lamp.LEDColor, colour) << flag;
      EXPECT_EQ(changed(), colour == unusual) << flag;
    }
    EXPECT_THAT(panel.sound.calls, ElementsAre("MMSpectrum1." + flag + "(True)", "MMSpectrum1." + flag + "(False)"));
  }
  // The user moves a control: the analyser gets that setting alone, and "Default" turns olive.
  void expect_setting(ValuedControl& control, std::int32_t value, const std::string& setting) {
    light_default();
    panel.sound.calls.clear();
    control.move(value);
    EXPECT_THAT(panel.sound.calls, ElementsAre("MMSpectrum1." + setting));
    EXPECT_TRUE(changed()) << setting;
  }
};

TEST_F(Board, LampsThatAreOffByDefaultTurnDefaultOliveWhenSwitchedOn) {
  expect_flag(controls.MMLEDX1, "DrawGrid", clLime);
  expect_flag(controls.MMLEDX5, "DrawPeaks", clLime);
}

TEST_F(Board, LampsThatAreOnByDefaultTurnDefaultOliveWhenSwitchedOff) {
  expect_flag(controls.MMLEDX3, "DrawInactive", clGreen);
  expect_flag(controls.MMLEDX4, "LogAmp", clGreen);
}

TEST_F(Board, GridOnAndOffAgainLeavesDefaultOlive) {
  light_default();
  controls.MMLEDX1.click.raise();
  controls.MMLEDX1.click.raise();
  EXPECT_TRUE(changed());
  controls.MMLEDX6.click.raise();
  EXPECT_FALSE(changed());
}

TEST_F(Board, LedStyleOnClearsBothFlags) {
  light_default();
  controls.MMLEDX2.click.raise();
  EXPECT_THAT(panel.sound.calls,
              ElementsAre("MMSpectrum1.SolidBars(False)", "MMSpectrum1.SolidMarks(False)", "MMSpectrum1.DrawMode(1)"));
  EXPECT_EQ(controls.MMLEDX2.LEDColor, clLime);
  EXPECT_FALSE(changed());
}

TEST_F(Board, LedStyleOffSetsBothFlags) {
  controls.MMLEDX2.LEDColor = clLime;
  light_default();
  controls.MMLEDX2.click.raise();
  EXPECT_THAT(panel.sound.calls,
              ElementsAre("MMSpectrum1.SolidBars(True)", "MMSpectrum1.SolidMarks(True)", "MMSpectrum1.DrawMode(2)"));
  EXPECT_EQ(controls.MMLEDX2.LEDColor, clGreen);
  EXPECT_TRUE(changed());
}

TEST_F(Board, SpinnersSetTheirSetting) {
  expect_setting(controls.MMLEDSpin1, 9, "Decay(9)");
  expect_setting(controls.MMLEDSpin4, 30, "PeakDelay(30)");
  expect_setting(controls.MMLEDSpin5, 4, "PeakCount(4)");
  expect_setting(controls.MMLEDSpin7, 2000, "ReferenceFrequency(2000)");
  expect_setting(controls.MMLEDSpin8, 11, "PeakSpeed(11)");
}

TEST_F(Board, TheButtonsOfThoseSpinnersStepByOne) {
  controls.MMLEDSpin1.user_up();
  EXPECT_EQ(setting(SpectrumSetting::Decay), 8);  // from the spinner's own 7
  controls.MMLEDSpin7.user_down();
  EXPECT_EQ(setting(SpectrumSetting::ReferenceFrequency), 499);
}

TEST_F(Board, SwitchesSetTheirSetting) {
  expect_setting(controls.MMSwitch1, 5, "Kind(5)");
  expect_setting(controls.MMSwitch2, 6, "Window(6)");
  expect_setting(controls.MMSwitch3, 2, "DecayMode(2)");
  expect_setting(controls.MMSwitch4, 3, "Gain(3)");
}

TEST_F(Board, TransformLengthUpFrom2048ShowsWhatTheAnalyserTook) {
  set(SpectrumSetting::FFTLength, 2048);
  light_default();
  controls.MMLEDSpin2.user_up();
  EXPECT_THAT(panel.sound.calls, ElementsAre("MMSpectrum1.FFTLength(4096)"));
  EXPECT_EQ(setting(SpectrumSetting::FFTLength), 4096);
  EXPECT_EQ(controls.MMLEDSpin2.Value, 2048);  // limited by the spinner's own range
  EXPECT_TRUE(changed());
}

TEST_F(Board, TransformLengthDownFromEightGivesFour) {
  set(SpectrumSetting::FFTLength, 8);
  controls.MMLEDSpin2.user_down();
  EXPECT_THAT(panel.sound.calls, ElementsAre("MMSpectrum1.FFTLength(4)"));
  EXPECT_EQ(setting(SpectrumSetting::FFTLength), 4);
  controls.MMLEDSpin2.user_down();
  EXPECT_EQ(panel.sound.calls.back(), "MMSpectrum1.FFTLength(2)");
  EXPECT_EQ(setting(SpectrumSetting::FFTLength), 4);
}

TEST_F(Board, TheButtonsWorkOnTheAnalysersValueNotTheSpinners) {
  controls.MMLEDSpin2.Value = 512;
  set(SpectrumSetting::FFTLength, 64);
  controls.MMLEDSpin2.user_up();
  EXPECT_EQ(controls.MMLEDSpin2.Value, 128);
}

TEST_F(Board, HorizontalScaleDoublesAndHalves) {
  controls.MMLEDSpin6.user_up();
  EXPECT_EQ(controls.MMLEDSpin6.Value, 2);
  controls.MMLEDSpin6.user_down();
  controls.MMLEDSpin6.user_down();
  EXPECT_THAT(panel.sound.calls, ElementsAre("MMSpectrum1.HorizontalScale(2)", "MMSpectrum1.HorizontalScale(1)",
                                             "MMSpectrum1.HorizontalScale(0)"));  // 1 halved is 0; the analyser takes 1
  EXPECT_EQ(controls.MMLEDSpin6.Value, 1);
}

TEST_F(Board, VerticalScaleHasItsOwnThresholds) {
  const struct {
    int from, up, down;
  } steps[] = {{8, 9, 7}, {9, 10, 8}, {10, 20, 9}, {11, 21, 1}, {20, 30, 10}, {200, 200, 190}, {1, 2, 1}};
  for (const auto& [from, up, down] : steps) {
    set(SpectrumSetting::VerticalScale, from);
    controls.MMLEDSpin3.user_up();
    EXPECT_EQ(controls.MMLEDSpin3.Value, up) << from;
    set(SpectrumSetting::VerticalScale, from);
    controls.MMLEDSpin3.user_down();
    EXPECT_EQ(controls.MMLEDSpin3.Value, down) << from;
  }
}

TEST_F(Board, PuttingTheButtonSpinnersReachesNothing) {
  light_default();
  controls.MMLEDSpin2.Value = 1024;
  controls.MMLEDSpin3.Value = 7;
  controls.MMLEDSpin6.Value = 8;
  EXPECT_THAT(panel.sound.calls, IsEmpty());
  EXPECT_FALSE(changed());
}

TEST_F(Board, ShowControlsGrowsTheWindowByTheBoard) {
  controls.ShowControls.click.raise();
  EXPECT_EQ(controls.Painel.Height, 6390);
  EXPECT_EQ(controls.Painel.Width, 9105);
  EXPECT_EQ(controls.ShowControls.BackColor, 65280);
  controls.ShowControls.click.raise();
  EXPECT_EQ(controls.Painel.Height, 3870);
  EXPECT_EQ(controls.ShowControls.BackColor, 32768);
}

TEST_F(Board, TheWidthIsNotTouched) {
  controls.Painel.Width = 3930;
  controls.ShowControls.click.raise();
  EXPECT_EQ(controls.Painel.Width, 3930);
  EXPECT_EQ(controls.Painel.Height, 6390);
}

}  // namespace
}  // namespace tandem

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "fakes/panel_test.h"

namespace tandem {
namespace {

using test::PanelTest;
using testing::ElementsAre;
using testing::IsEmpty;

struct Pitch : PanelTest {
  // Read-out and lamps: the text, then a letter for each lamp that is lit.
  std::string read_out() const {
    std::string shown = controls.INDIC.Caption.get() + "|";
    if (controls.LED1.LEDColor == clRed) shown += "-";
    if (controls.LED2.LEDColor == clAqua) shown += "0";
    if (controls.LED3.LEDColor == clRed) shown += "+";
    return shown;
  }
  std::string at(std::int32_t p) {
    controls.SliderP.move(p);
    return read_out();
  }
  bool pitch_mode() const {
    return controls.LED1.Visible && controls.LED2.Visible && controls.LED3.Visible && !controls.MeterVol.Visible;
  }
  bool volume_mode() const {
    return !controls.LED1.Visible && !controls.LED2.Visible && !controls.LED3.Visible && controls.MeterVol.Visible;
  }
};

TEST_F(Pitch, EveryPositionOfTheSlider) {
  for (std::int32_t p = -20; p <= 20; ++p) {
    const std::string step = std::to_string((p < 0 ? -p : p) / 5);
    std::string expected = "PITCH  0|0";
    if (p >= 5) expected = "PITCH +0" + step + "|+";
    if (p >= 1 && p <= 4) expected = "PITCH  +|+";
    if (p <= -1 && p >= -4) expected = "PITCH  -|-";
    if (p <= -5) expected = "PITCH -0" + step + "|-";
    EXPECT_EQ(at(p), expected) << p;
  }
}

TEST_F(Pitch, ShowsItsNamedPositions) {
  EXPECT_EQ(at(20), "PITCH +04|+");
  EXPECT_EQ(at(-20), "PITCH -04|-");
  EXPECT_EQ(at(9), "PITCH +01|+");
  EXPECT_EQ(at(-9), "PITCH -01|-");
  EXPECT_EQ(at(10), "PITCH +02|+");
  EXPECT_EQ(at(4), "PITCH  +|+");
  EXPECT_EQ(at(-1), "PITCH  -|-");
  EXPECT_EQ(at(0), "PITCH  0|0");
}

TEST_F(Pitch, ALampThatIsNotLitIsDark) {
  at(10);
  EXPECT_EQ(controls.LED1.LEDColor, clMaroon);
  EXPECT_EQ(controls.LED2.LEDColor, clTeal);
  at(-10);
  EXPECT_EQ(controls.LED3.LEDColor, clMaroon);
}

TEST_F(Pitch, OnlyTheHeardDeckIsChangedByTheSliderAsItStands) {
  state.ActiveDeck = 1;
  at(7);
  EXPECT_THAT(panel.sound.calls, ElementsAre("Pitch(1).Value(7)"));
  EXPECT_EQ(panel.program.sound.Pitch[0]->Value(), 0.0F);
}

TEST_F(Pitch, TheOtherDeckKeepsItsPitchWhenItIsHeard) {
  panel.add_songs(3);
  state.MixTimeMs = 2500;
  controls.PLAY.click.raise();
  at(5);
  panel.tick();
  panel.sound.deck[0]->position = 199000;
  panel.tick();
  panel.sound.mixer->end_input(0);  // now deck 1 is heard
  at(-10);
  EXPECT_EQ(panel.program.sound.Pitch[0]->Value(), 5.0F);
  EXPECT_EQ(panel.program.sound.Pitch[1]->Value(), -10.0F);
  panel.sound.calls.clear();
  panel.tick();
  panel.sound.deck[1]->position = 199000;
  panel.tick();
  panel.sound.mixer->end_input(1);  // deck 0 again, at its own earlier pitch
  EXPECT_THAT(panel.sound.calls_of({"Pitch(0)", "Pitch(1)"}), IsEmpty());
  at(3);
  EXPECT_EQ(panel.program.sound.Pitch[0]->Value(), 3.0F);
  EXPECT_EQ(panel.program.sound.Pitch[1]->Value(), -10.0F);
}

TEST_F(Pitch, APressShowsThePitchAndWritesNone) {
  at(10);
  panel.sound.calls.clear();
  controls.SliderP.user_press();
  EXPECT_TRUE(pitch_mode());
  EXPECT_EQ(controls.INDIC.LEDColor, clAqua);
  EXPECT_THAT(panel.sound.calls, IsEmpty());
}

TEST_F(Pitch, APressAtZeroShowsZero) {
  controls.SliderP.user_press();
  EXPECT_EQ(read_out(), "PITCH  0|0");
}

TEST_F(Pitch, APressShowsEveryPositionAsAChangeDoes) {
  for (std::int32_t p = -20; p <= 20; ++p) {
    const std::string expected = at(p);
    controls.SliderP.user_press();
    controls.SliderP.user_release();
    controls.SliderP.user_press();
    EXPECT_EQ(read_out(), expected) << p;
    controls.SliderP.user_release();
  }
}

TEST_F(Pitch, APressWhileTheSliderMovesShowsNoWholeStep) {
  at(10);
  controls.INDIC.Caption = "other";
  controls.SliderP.user_press();  // PitchMoving still stands
  EXPECT_EQ(controls.INDIC.Caption.get(), "other");
  EXPECT_TRUE(pitch_mode());
}

TEST_F(Pitch, ReleaseAlwaysGoesBackToTheVolume) {
  for (const std::int32_t p : {-20, -1, 0, 4, 20}) {
    controls.SliderP.user_press();
    at(p);
    controls.SliderP.user_release();
    EXPECT_EQ(controls.INDIC.Caption.get(), "VOLUME");
    EXPECT_EQ(controls.INDIC.LEDColor, clYellow);
    EXPECT_TRUE(volume_mode());
    EXPECT_EQ(state.PitchMoving, kFalse);
  }
}

TEST_F(Pitch, MovingIsRememberedUntilTheRelease) {
  controls.SliderP.user_press();
  EXPECT_EQ(state.PitchMoving, kFalse);
  at(3);
  EXPECT_EQ(state.PitchMoving, kTrue);
}

TEST_F(Pitch, TheResetSetsItToZeroAndTheReadOutFollowsLater) {
  controls.SliderP.user_press();
  at(15);
  controls.SliderP.user_release();
  panel.sound.calls.clear();
  controls.Command2.click.raise();
  EXPECT_EQ(controls.SliderP.Position, 0);
  EXPECT_THAT(panel.sound.calls, ElementsAre("Pitch(0).Value(0)"));
  EXPECT_EQ(read_out(), "PITCH  0|0");
  EXPECT_TRUE(controls.TimerDelay.Enabled());
  panel.advance(1490);
  EXPECT_EQ(controls.INDIC.Caption.get(), "PITCH  0");
  panel.advance(10);
  EXPECT_EQ(controls.INDIC.Caption.get(), "VOLUME");
  EXPECT_TRUE(volume_mode());
  EXPECT_FALSE(controls.TimerDelay.Enabled());
}

TEST_F(Pitch, TheResetReachesAHeardDeckThatCarriesAnOlderPitch) {
  panel.program.sound.Pitch[1]->put_Value(15.0F);
  state.ActiveDeck = 1;
  panel.sound.calls.clear();
  controls.Command2.click.raise();  // the slider stands at 0 already
  EXPECT_THAT(panel.sound.calls, ElementsAre("Pitch(1).Value(0)"));
}

TEST_F(Pitch, TheResetButtonLooksPressedWhileItIs) {
  controls.Command2.press.raise();
  EXPECT_EQ(controls.Command2.BackColor, 0x808080);
  controls.Command2.release.raise();
  EXPECT_EQ(controls.Command2.BackColor, 0xC0C0C0);
}

}  // namespace
}  // namespace tandem

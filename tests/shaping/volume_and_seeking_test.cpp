#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "fakes/panel_test.h"

namespace tandem {
namespace {

using test::PanelTest;
using testing::ElementsAre;
using testing::IsEmpty;

struct Volume : PanelTest {};

using Seek = Volume;

TEST_F(Volume, TheWheelGoesToTheMixerUnscaledAndToTheGaugeInPercent) {
  for (const auto& [value, percent] : {std::pair{32768, 100}, {0, 0}, {16384, 50}, {163, 0}, {164, 1}}) {
    panel.sound.calls.clear();
    controls.Volume.move(value);
    EXPECT_THAT(panel.sound.calls, ElementsAre("WaveMixer.Volume(" + std::to_string(value) + ")"));
    EXPECT_EQ(controls.MeterVol.Progress, percent);
  }
}

TEST_F(Volume, HalvesGoToTheEvenPercent) {
  for (const auto& [value, percent] : {std::pair{4096, 12}, {12288, 38}, {20480, 62}, {28672, 88}}) {
    controls.Volume.move(value);
    EXPECT_EQ(controls.MeterVol.Progress, percent);
  }
}

TEST_F(Volume, APutFromCodeIsFollowedToo) {
  controls.Volume.Value = 100;
  EXPECT_THAT(panel.sound.calls, ElementsAre("WaveMixer.Volume(100)"));
}

TEST_F(Volume, AHiddenGaugeKeepsItsValue) {
  controls.SliderP.user_press();
  controls.Volume.move(16384);
  EXPECT_FALSE(controls.MeterVol.Visible);
  controls.SliderP.user_release();
  EXPECT_TRUE(controls.MeterVol.Visible);
  EXPECT_EQ(controls.MeterVol.Progress, 50);
}

TEST_F(Seek, DraggingOnlyChangesTheTextAndTheReleaseSeeks) {
  controls.Slider1.put_maximum(200000);
  state.ActiveDeck = 1;
  controls.Slider1.user_press();
  EXPECT_EQ(state.SeekDragging, kTrue);
  controls.Slider1.move(65000);
  EXPECT_EQ(controls.LblPosition.Caption.get(), "01:05");
  EXPECT_THAT(panel.sound.calls, IsEmpty());
  controls.Slider1.user_release();
  EXPECT_THAT(panel.sound.calls, ElementsAre("AudioFile(1).Position(65000)"));
  EXPECT_EQ(state.SeekDragging, kFalse);
}

TEST_F(Seek, TheTextIsNotCut) {
  controls.Slider1.put_maximum(2000000);
  controls.Slider1.move(754000);
  EXPECT_EQ(controls.LblPosition.Caption.get(), "012:34");
}

TEST_F(Seek, TheRefreshGoesOnAfterTheRelease) {
  controls.Slider1.put_maximum(200000);
  controls.Slider1.user_press();
  controls.Slider1.move(65000);
  panel.sound.deck[0]->position = 5000;
  panel.advance(400);
  EXPECT_EQ(controls.Slider1.Position, 65000);
  controls.Slider1.user_release();
  panel.sound.deck[0]->position = 65200;
  panel.advance(200);
  EXPECT_EQ(controls.Slider1.Position, 65200);
}

}  // namespace
}  // namespace tandem

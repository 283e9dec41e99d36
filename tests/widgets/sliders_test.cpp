// Equalizer faders, pitch fader, position slider and slide switches under mouse, wheel and keys.

#include <gtest/gtest.h>

#include "widgets/key_moves.h"

namespace tandem::test {
namespace {

using Events = std::vector<std::string>;

TEST(BandFader, APressMovesTheCapThereAndDrags) {
  WindowRig rig;
  rig.show_equalizer();
  Slider& band = rig.controls().sl0[4];
  const int x = rig.middle("sl0(4)").x();
  const auto y_of = [](int value) { return 150 + 3 * (12 - value); };
  rig.press({x, y_of(5)});
  EXPECT_EQ(band.value(), 5);
  EXPECT_EQ(rig.controls().dbLabel0[4].Caption.get(), " 5");
  rig.move({x, y_of(-7)});
  EXPECT_EQ(band.value(), -7);
  rig.move({x + 60, 300});  // beyond its end and beside it
  EXPECT_EQ(band.value(), -12);
  rig.move({x, 20});
  EXPECT_EQ(band.value(), 12);
  rig.release({x, 20});
  rig.move({x, y_of(0)});
  EXPECT_EQ(band.value(), 12);
}

TEST(BandFader, APressOnTheCapMovesNothingAndADragKeepsThePlaceOnIt) {
  WindowRig rig;
  rig.show_equalizer();
  Slider& band = rig.controls().sl0[4];
  const QPoint edge = rig.middle("sl0(4)") + QPoint(5, 5);
  rig.press(edge);
  EXPECT_EQ(band.value(), 0);
  rig.move(edge + QPoint(0, 30));
  EXPECT_EQ(band.value(), -10);
  rig.release(edge + QPoint(0, 30));
  EXPECT_EQ(band.value(), -10);
}

TEST(BandFader, TheWholeColumnIsItsOwn) {
  WindowRig rig;
  rig.show_equalizer();
  rig.click(rig.in("sl0(4)", 0, 83));
  EXPECT_EQ(rig.controls().sl0[4].value(), -12);
  rig.click(rig.in("sl0(4)", 21, 0));
  EXPECT_EQ(rig.controls().sl0[4].value(), 12);
  EXPECT_EQ(rig.controls().sl0[3].value(), 0);
  EXPECT_EQ(rig.controls().sl0[5].value(), 0);
}

TEST(BandFader, IsMovedByKeys) {
  WindowRig rig;
  rig.show_equalizer();
  Slider& band = rig.controls().sl0[7];
  rig.focus("sl0(7)");
  expect_keys_move(rig, band,
                   {{Qt::Key_Up, 1},
                    {Qt::Key_PageUp, 4},
                    {Qt::Key_Down, 3},
                    {Qt::Key_PageDown, 0},
                    {Qt::Key_Home, 12},
                    {Qt::Key_Up, 12},
                    {Qt::Key_End, -12},
                    {Qt::Key_0, 0}});
  rig.key(Qt::Key_Right);
  EXPECT_EQ(rig.focused(), "sl0(8)");
  rig.key(Qt::Key_Left);
  rig.key(Qt::Key_Left);
  EXPECT_EQ(rig.focused(), "sl0(6)");
  rig.focus("sl0(14)");
  rig.key(Qt::Key_Right);
  EXPECT_EQ(rig.focused(), "sl0(14)");
}

TEST(BandFader, WheelGoesByOne) {
  WindowRig rig;
  rig.show_equalizer();
  rig.wheel("sl0(2)", 3);
  EXPECT_EQ(rig.controls().sl0[2].value(), 3);
  rig.wheel("sl0(2)", -1);
  EXPECT_EQ(rig.controls().sl0[2].value(), 2);
}

// What the fader gives notice of, in place of what the panel does.
class PitchFaderEvents : public testing::Test {
 protected:
  PitchFaderEvents() { log_of(rig.controls().SliderP, log); }

  WindowRig rig;
  Events log;
};

TEST_F(PitchFaderEvents, MouseIsPressChangesRelease) {
  const QPoint middle = rig.middle("SliderP");
  const double zero = 181 + 73 / 2.0;  // 1.5 px for each unit
  rig.press({middle.x(), static_cast<int>(zero - 15)});
  rig.move({middle.x(), static_cast<int>(zero + 15)});
  rig.release({middle.x(), static_cast<int>(zero + 15)});
  ASSERT_EQ(log.size(), 4U);
  EXPECT_EQ(log[0], "press");
  EXPECT_EQ(log[1], "change 10");
  EXPECT_EQ(log[2], "change -10");
  EXPECT_EQ(log[3], "release");
}

TEST_F(PitchFaderEvents, KeyDownIsPressAndChangeKeyUpIsRelease) {
  rig.focus("SliderP");
  rig.key_down(Qt::Key_Up);
  EXPECT_EQ(log, (Events{"press", "change 1"}));
  rig.key_up(Qt::Key_Up);
  EXPECT_EQ(log, (Events{"press", "change 1", "release"}));
  log.clear();
  rig.key(Qt::Key_PageUp);
  rig.key(Qt::Key_Home);
  rig.key(Qt::Key_End);
  EXPECT_EQ(log, (Events{"press", "change 11", "release", "press", "change 20", "release", "press", "change -20",
                         "release"}));
}

TEST_F(PitchFaderEvents, LosingTheFocusLetsGo) {
  rig.focus("SliderP");
  rig.key_down(Qt::Key_Up);
  rig.focus("PLAY");
  EXPECT_EQ(log, (Events{"press", "change 1", "release"}));
}

TEST_F(PitchFaderEvents, WheelIsAllThree) {
  rig.wheel("SliderP", -1);
  EXPECT_EQ(log, (Events{"press", "change -1", "release"}));
}

// The whole way: read-out, lamps in place of the gauge, and the stud that resets it.
TEST(PitchFader, ShowsThePitchWhileItIsHeld) {
  WindowRig rig;
  rig.focus("SliderP");
  rig.key_down(Qt::Key_Down);
  EXPECT_TRUE(rig.item("LED1").isVisible());
  EXPECT_TRUE(rig.item("LED2").isVisible());
  EXPECT_TRUE(rig.item("LED3").isVisible());
  EXPECT_FALSE(rig.item("MeterVol").isVisible());
  rig.key_up(Qt::Key_Down);
  rig.player->run(3000);
  EXPECT_FALSE(rig.item("LED1").isVisible());
  EXPECT_TRUE(rig.item("MeterVol").isVisible());
  rig.click("Command2");
  EXPECT_EQ(rig.controls().SliderP.value(), 0);
}

TEST(PositionSlider, SeeksOnRelease) {
  WindowRig rig;
  rig.add_songs(1, 60);
  rig.click("PLAY");
  rig.player->run(1000);
  const auto position = [&rig] { return rig.player->program.sound.AudioFile[0]->Position(); };
  const QRect box = control_box("Slider1").box();
  rig.press({box.left() + 9 + (box.width() - 18) / 2, box.center().y()});
  EXPECT_NEAR(rig.controls().Slider1.value(), 30000, 200);
  rig.player->run(500);
  EXPECT_LT(position(), 2000);
  EXPECT_NEAR(rig.controls().Slider1.value(), 30000, 200);  // held: the time does not move it
  rig.release({box.left() + 9 + (box.width() - 18) / 2, box.center().y()});
  rig.player->run(500);
  EXPECT_NEAR(position(), 30500, 300);
}

TEST(PositionSlider, APressOnTheCapSeeksNowhere) {
  WindowRig rig;
  Events log;
  rig.controls().Slider1.put_maximum(240000);
  rig.controls().Slider1.Position = 60000;
  log_of(rig.controls().Slider1, log);
  const QRect box = control_box("Slider1").box();
  const QPoint edge(box.left() + (box.width() - 18) / 4 + 15, box.center().y());
  rig.press(edge);
  rig.release(edge);
  EXPECT_EQ(log, (Events{"press", "release"}));
}

TEST(PositionSlider, KeysStepByFiveAndThirtySeconds) {
  WindowRig rig;
  rig.add_songs(1, 90);
  Events log;
  rig.controls().Slider1.put_maximum(90000);
  log_of(rig.controls().Slider1, log);
  rig.focus("Slider1");
  for (const Qt::Key key : {Qt::Key_PageUp, Qt::Key_Right, Qt::Key_Left, Qt::Key_PageDown, Qt::Key_End, Qt::Key_Home})
    rig.key(key);
  EXPECT_EQ(log, (Events{"press", "change 30000", "release", "press", "change 35000", "release", "press",
                         "change 30000", "release", "press", "change 0", "release", "press", "change 90000", "release",
                         "press", "change 0", "release"}));
  log.clear();
  rig.wheel("Slider1", 1);
  EXPECT_EQ(log, (Events{"press", "change 5000", "release"}));
}

TEST(SlideSwitch, SlotCaptionsKeysAndWheel) {
  WindowRig rig;
  Switch& bypass = rig.controls().Bypass;
  ASSERT_EQ(bypass.value(), 1);
  rig.click("Bypass");
  EXPECT_EQ(bypass.value(), 0);
  rig.click("Bypass");
  EXPECT_EQ(bypass.value(), 1);
  rig.click(rig.caption("Bypass", 0));
  EXPECT_EQ(bypass.value(), 0);
  rig.click(rig.caption("Bypass", 0));
  EXPECT_EQ(bypass.value(), 0);
  rig.click(rig.caption("Bypass", 1));
  EXPECT_EQ(bypass.value(), 1);
  rig.focus("Bypass");
  expect_keys_move(rig, bypass, {{Qt::Key_Up, 0}, {Qt::Key_Down, 1}, {Qt::Key_Space, 0}});
  rig.wheel("Bypass", -1);
  EXPECT_EQ(bypass.value(), 1);
  rig.click("BufferSwitch");
  EXPECT_EQ(rig.controls().BufferSwitch.value(), 1);
}

}  // namespace
}  // namespace tandem::test

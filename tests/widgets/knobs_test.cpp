// The volume wheel, the rotary switches and the spinners.

#include <gtest/gtest.h>

#include "widgets/key_moves.h"

namespace tandem::test {
namespace {

constexpr int kFullVolume = 32768;

TEST(VolumeWheel, DragOf150PixelsIsTheFullRange) {
  WindowRig rig;
  Wheel& volume = rig.controls().Volume;
  const QPoint at = rig.middle("Volume");
  rig.press(at);
  rig.move(at + QPoint(0, 75));
  EXPECT_NEAR(volume.value(), kFullVolume / 2, 1);
  rig.move(at + QPoint(30, 150));
  EXPECT_EQ(volume.value(), 0);
  rig.move(at + QPoint(0, 140));
  EXPECT_NEAR(volume.value(), kFullVolume / 15, 1);
  rig.release(at + QPoint(0, 140));
  rig.move(at);
  EXPECT_NEAR(volume.value(), kFullVolume / 15, 1);
}

TEST(VolumeWheel, ShiftMakesItATenth) {
  WindowRig rig;
  const QPoint at = rig.middle("Volume");
  rig.press(at);
  rig.move(at + QPoint(0, 75), Qt::ShiftModifier);
  EXPECT_NEAR(rig.controls().Volume.value(), kFullVolume - kFullVolume / 20, 1);
  rig.release(at + QPoint(0, 75));
}

TEST(VolumeWheel, WheelKeysAndTheReadOut) {
  WindowRig rig;
  Wheel& volume = rig.controls().Volume;
  rig.wheel("Volume", -2);
  EXPECT_EQ(volume.value(), kFullVolume - 2 * 328);
  rig.wheel("Volume", 5);
  EXPECT_EQ(volume.value(), kFullVolume);
  rig.focus("Volume");
  expect_keys_move(rig, volume,
                   {{Qt::Key_Home, 0},
                    {Qt::Key_Up, 328},
                    {Qt::Key_Right, 656},
                    {Qt::Key_Down, 328},
                    {Qt::Key_Left, 0},
                    {Qt::Key_PageUp, 3277},
                    {Qt::Key_PageDown, 0},
                    {Qt::Key_Left, 0},
                    {Qt::Key_End, kFullVolume}});
  EXPECT_EQ(rig.controls().MeterVol.Progress, 100);
  EXPECT_EQ(rig.item("MeterVol").accessible_value().toStdString(), "100 %");
}

TEST(VolumeWheel, ADoubleClickDoesNothing) {
  WindowRig rig;
  rig.double_click(rig.middle("Volume"));
  EXPECT_EQ(rig.controls().Volume.value(), kFullVolume);
}

const QPoint kMeterKnob(27, 227);

TEST(RotarySwitch, AClickOnTheKnobIsTheNextPosition) {
  WindowRig rig;
  Switch& meter = rig.controls().MMSwitchX1;
  meter.move(0);
  for (const int position : {1, 2, 0}) {
    rig.click(kMeterKnob);
    EXPECT_EQ(meter.value(), position);
  }
  rig.click(kMeterKnob, Qt::RightButton);
  EXPECT_EQ(meter.value(), 2);
  rig.click(kMeterKnob, Qt::LeftButton, Qt::ShiftModifier);
  EXPECT_EQ(meter.value(), 1);
  rig.key(Qt::Key_F4);
  EXPECT_EQ(meter.value(), 2);
}

TEST(RotarySwitch, ACaptionChoosesItsPosition) {
  WindowRig rig;
  rig.show_board();
  for (const char* name : {"MMSwitchX1", "MMSwitch1", "MMSwitch2", "MMSwitch3", "MMSwitch4"}) {
    const auto count = static_cast<int>(position_captions(name).size());
    for (int position = count - 1; position >= 0; --position) {
      rig.click(rig.caption(name, position));
      EXPECT_EQ(rig.item(name).accessible_value().toStdString(),
                position_captions(name)[static_cast<std::size_t>(position)].caption)
          << name;
    }
  }
}

TEST(RotarySwitch, ThePlaceBesideKnobAndCaptionsIsDead) {
  WindowRig rig;
  rig.controls().MMSwitchX1.move(1);
  rig.click(rig.in("MMSwitchX1", 48, 4));
  EXPECT_EQ(rig.controls().MMSwitchX1.value(), 1);
}

TEST(RotarySwitch, WheelAndKeysStopAtTheEnds) {
  WindowRig rig;
  rig.show_board();
  Switch& type = rig.controls().MMSwitch1;
  rig.focus("MMSwitch1");
  expect_keys_move(rig, type,
                   {{Qt::Key_Home, 0}, {Qt::Key_Up, 0}, {Qt::Key_Down, 1}, {Qt::Key_End, 5}, {Qt::Key_Down, 5}});
  for (char digit = '1'; digit <= '6'; ++digit) {
    rig.type(digit);
    EXPECT_EQ(type.value(), digit - '1');
  }
  rig.type('7');
  EXPECT_EQ(type.value(), 5);
  rig.wheel(QPoint(138, 322), 2);
  EXPECT_EQ(type.value(), 3);
  rig.wheel(QPoint(138, 322), -9);
  EXPECT_EQ(type.value(), 5);
}

TEST(RotarySwitch, DraggingTurnsItTowardsThePointer) {
  WindowRig rig;
  rig.show_board();
  Switch& window_kind = rig.controls().MMSwitch2;
  const QPoint knob(262, 322);
  rig.press(knob);
  rig.move(knob + QPoint(12, -18));  // 34 degrees
  EXPECT_EQ(window_kind.value(), 0);
  rig.move(knob + QPoint(40, 0));  // 90
  EXPECT_EQ(window_kind.value(), 3);
  rig.move(knob + QPoint(-5, 30));  // -171: nearest to 145
  EXPECT_EQ(window_kind.value(), 6);
  rig.release(knob + QPoint(-5, 30));
  EXPECT_EQ(window_kind.value(), 6);  // a drag is no click
}

struct SpinCase {
  const char* name;
  Spinner PanelControls::*spinner;
};
class Spin : public testing::TestWithParam<SpinCase> {
 protected:
  Spin() { rig.show_board(); }
  Spinner& spinner() { return rig.controls().*GetParam().spinner; }
  std::string name() const { return GetParam().name; }
  QPoint up() const { return rig.in(name(), control_box(name()).w - 8, 6); }
  QPoint down() const { return rig.in(name(), control_box(name()).w - 8, 16); }
  WindowRig rig;
};

TEST_P(Spin, ButtonsArrowsAndWheelAreTheSame) {
  int ups = 0;
  int downs = 0;
  spinner().up_click.connect([&ups] { ++ups; });
  spinner().down_click.connect([&downs] { ++downs; });
  rig.click(up());
  rig.wheel(name(), 2);
  rig.focus(name());
  rig.key(Qt::Key_Up);
  EXPECT_EQ(ups, 4);
  EXPECT_EQ(downs, 0);
  rig.click(down());
  rig.wheel(name(), -1);
  rig.key(Qt::Key_Down);
  EXPECT_EQ(ups, 4);
  EXPECT_EQ(downs, 3);
  rig.click(rig.in(name(), 4, 11));  // on the digits
  EXPECT_EQ(ups + downs, 7);
}

TEST_P(Spin, AHeldButtonRepeatsAfter400MillisecondsEvery80) {
  int ups = 0;
  spinner().up_click.connect([&ups] { ++ups; });
  rig.press(up());
  EXPECT_EQ(ups, 1);
  rig.frame(10);  // the time before it was pressed does not count
  EXPECT_EQ(ups, 1);
  rig.frame(0.39);
  EXPECT_EQ(ups, 1);
  rig.frame(0.02);
  EXPECT_EQ(ups, 2);
  rig.frame(0.06);
  EXPECT_EQ(ups, 2);
  rig.frame(0.02);
  EXPECT_EQ(ups, 3);
  rig.frame(0.16);
  EXPECT_EQ(ups, 5);
  rig.release(up());
  rig.frame(1);
  EXPECT_EQ(ups, 5);
}

std::string spin_name(const testing::TestParamInfo<SpinCase>& spin) { return spin.param.name; }

INSTANTIATE_TEST_SUITE_P(All, Spin,
                         testing::Values(SpinCase{"MMLEDSpin1", &PanelControls::MMLEDSpin1},
                                         SpinCase{"MMLEDSpin2", &PanelControls::MMLEDSpin2},
                                         SpinCase{"MMLEDSpin3", &PanelControls::MMLEDSpin3},
                                         SpinCase{"MMLEDSpin4", &PanelControls::MMLEDSpin4},
                                         SpinCase{"MMLEDSpin5", &PanelControls::MMLEDSpin5},
                                         SpinCase{"MMLEDSpin6", &PanelControls::MMLEDSpin6},
                                         SpinCase{"MMLEDSpin7", &PanelControls::MMLEDSpin7},
                                         SpinCase{"MMLEDSpin8", &PanelControls::MMLEDSpin8}),
                         spin_name);

TEST(Spinners, PageIsTenStepsAndHomeAndEndAreTheLimits) {
  WindowRig rig;
  rig.show_board();
  Spinner& reference = rig.controls().MMLEDSpin7;
  reference.move(500);
  rig.focus("MMLEDSpin7");
  const int step = reference.Step;
  expect_keys_move(
      rig, reference,
      {{Qt::Key_PageUp, 500 + 10 * step}, {Qt::Key_PageDown, 500}, {Qt::Key_End, 22050}, {Qt::Key_Home, 50}});
}

TEST(Spinners, ThoseThatWorkByTheirButtonsTakePageAsAButton) {
  WindowRig rig;
  rig.show_board();
  Spinner& length = rig.controls().MMLEDSpin2;
  int ups = 0;
  int downs = 0;
  length.up_click.connect([&ups] { ++ups; });
  length.down_click.connect([&downs] { ++downs; });
  const int before = length.value();
  rig.focus("MMLEDSpin2");
  rig.key(Qt::Key_PageUp);
  rig.key(Qt::Key_PageDown);
  rig.key(Qt::Key_Home);
  rig.key(Qt::Key_End);
  EXPECT_EQ(ups, 1);
  EXPECT_EQ(downs, 1);
  EXPECT_EQ(length.value(), before);
}

}  // namespace
}  // namespace tandem::test

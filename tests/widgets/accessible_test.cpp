// What assistive technology reads and does.

#include <gtest/gtest.h>

#include <QAccessible>

#include "widgets/window_rig.h"

namespace tandem::test {
namespace {

class Spoken : public testing::Test {
 protected:
  QAccessibleInterface& of(const char* name) const {
    QAccessibleInterface* found = QAccessible::queryAccessibleInterface(&rig.item(name));
    if (found == nullptr) throw std::runtime_error("silent");
    return *found;
  }
  std::string value(const char* name) const { return of(name).text(QAccessible::Value).toStdString(); }
  std::string spoken_name(const char* name) const { return of(name).text(QAccessible::Name).toStdString(); }
  QAccessibleActionInterface& actions(const char* name) const {
    QAccessibleActionInterface* found = of(name).actionInterface();
    if (found == nullptr) throw std::runtime_error("no actions");
    return *found;
  }
  void act(const char* name) const { actions(name).doAction(QAccessibleActionInterface::pressAction()); }
  bool acts(const char* name) const {
    return actions(name).actionNames().contains(QAccessibleActionInterface::pressAction());
  }
  QAccessibleValueInterface& number(const char* name) const {
    QAccessibleValueInterface* found = of(name).valueInterface();
    if (found == nullptr) throw std::runtime_error("no number");
    return *found;
  }
  WindowRig rig;
};

TEST_F(Spoken, EveryStopOfTheTabChainHasANameAndARole) {
  rig.show_board();
  for (const PanelItem* item : rig.window->items()) {
    if (item->place().tab == 0) continue;
    const std::string name(item->place().name);
    EXPECT_FALSE(spoken_name(name.c_str()).empty()) << name;
    EXPECT_NE(of(name.c_str()).role(), QAccessible::StaticText) << name;
    EXPECT_TRUE(acts(name.c_str()) || item->value_range() != nullptr || name == "PlayList") << name;
  }
}

TEST_F(Spoken, Roles) {
  EXPECT_EQ(of("PLAY").role(), QAccessible::Button);
  EXPECT_EQ(of("Volume").role(), QAccessible::Dial);
  EXPECT_EQ(of("MMSwitch1").role(), QAccessible::Dial);
  EXPECT_EQ(of("sl0(3)").role(), QAccessible::Slider);
  EXPECT_EQ(of("MMLEDX2").role(), QAccessible::CheckBox);
  EXPECT_EQ(of("Bypass").role(), QAccessible::CheckBox);
  EXPECT_EQ(of("AMLed2").role(), QAccessible::RadioButton);
  EXPECT_EQ(of("MMLEDSpin7").role(), QAccessible::SpinBox);
  EXPECT_EQ(of("PlayList").role(), QAccessible::List);
  EXPECT_EQ(of("MeterVol").role(), QAccessible::Indicator);
}

TEST_F(Spoken, Values) {
  rig.controls().LblPosition.Caption = "01:23";
  EXPECT_EQ(spoken_name("LblPosition"), "Position");
  EXPECT_EQ(value("LblPosition"), "01:23");
  EXPECT_EQ(spoken_name("sl0(7)"), "Equalizer 1K2 Hz");
  rig.controls().sl0[7].put(-4);
  EXPECT_EQ(value("sl0(7)"), "-4 dB");
  rig.controls().Volume.put(16384);
  EXPECT_EQ(value("Volume"), "50 %");
  EXPECT_EQ(value("MeterVol"), "50 %");
  rig.controls().MMLEDSpin7.move(22050);  // the digits show the last four
  EXPECT_EQ(value("MMLEDSpin7"), "22050");
  rig.controls().MMSwitchX1.move(1);
  EXPECT_EQ(value("MMSwitchX1"), "V.U.");
  EXPECT_EQ(value("Bypass"), "EQ");
  rig.add_songs(2);
  rig.controls().PlayList.user_select(1);
  EXPECT_EQ(value("PlayList"), rig.controls().PlayList.List(1));
}

TEST_F(Spoken, Displays) {
  rig.controls().MMSwitchX1.move(0);
  rig.frame(0);
  EXPECT_EQ(spoken_name("MMSpectrum1"), "Spectrum analyser");
  EXPECT_FALSE(rig.item("MMMeterX2").isVisible());
  rig.controls().MMSwitchX1.move(1);
  rig.frame(0);
  EXPECT_TRUE(rig.item("MMMeterX2").isVisible());
  EXPECT_EQ(spoken_name("MMSpectrum1"), "Left level, dB");
  EXPECT_EQ(spoken_name("MMMeterX2"), "Right level, dB");
  const std::vector<SoundFrame> right_only(441, SoundFrame{0.0F, 1.0F});
  for (int i = 0; i < 300; ++i) {
    rig.window->visual().feed(right_only);
    rig.frame(0.01);
  }
  EXPECT_EQ(value("MMMeterX2"), "3 dB");  // full scale is the end of the scale
  EXPECT_NE(value("MMSpectrum1"), "3 dB");
  EXPECT_EQ(value("MMLevelX1"), "100 %");
  rig.controls().MMSwitchX1.move(2);
  rig.frame(0);
  EXPECT_EQ(spoken_name("MMSpectrum1"), "Oscilloscope");
  EXPECT_FALSE(rig.item("MMLevelX1").isVisible());
}

TEST_F(Spoken, TwoStates) {
  EXPECT_TRUE(of("AMLed2").state().checkable);
  EXPECT_TRUE(of("AMLed2").state().checked);
  EXPECT_FALSE(of("AMLed1").state().checked);
  EXPECT_TRUE(of("ShowPlayList").state().checked);
  EXPECT_FALSE(of("ShowControls").state().checked);
  rig.controls().PAUSE.BackColor = clYellow;
  EXPECT_TRUE(of("PAUSE").state().checked);
  EXPECT_FALSE(of("STOPBtn").state().checkable);
  rig.controls().NextBtn.Enabled = false;
  EXPECT_TRUE(of("NextBtn").state().disabled);
  EXPECT_FALSE(acts("NextBtn"));
}

TEST_F(Spoken, ActionsAreThoseOfTheHand) {
  act("ShowControls");
  EXPECT_EQ(rig.window->height(), 426);
  act("AMLed3");
  EXPECT_EQ(rig.controls().AMLed3.LEDColor.get(), kLeadLit);
  act("Bypass");
  EXPECT_EQ(rig.controls().Bypass.value(), 0);
  act("SongLabel");
  EXPECT_EQ(rig.window->width(), 262);
  EXPECT_FALSE(acts("INDIC"));
  act("Close");
  EXPECT_EQ(rig.closes, 1);
}

TEST_F(Spoken, ValuesAreSetAsByTheHand) {
  QAccessibleValueInterface& volume = number("Volume");
  EXPECT_EQ(volume.maximumValue().toInt(), 32768);
  volume.setCurrentValue(1000);
  EXPECT_EQ(rig.controls().Volume.value(), 1000);
  volume.setCurrentValue(1e12);
  EXPECT_EQ(rig.controls().Volume.value(), 32768);
  std::vector<std::string> log;
  number("SliderP").setCurrentValue(1e12);
  log_of(rig.controls().SliderP, log);
  number("SliderP").setCurrentValue(-3);
  EXPECT_EQ(log, (std::vector<std::string>{"press", "change -3", "release"}));
  number("MMLEDSpin1").setCurrentValue(9);
  EXPECT_EQ(rig.controls().MMLEDSpin1.value(), 9);
  EXPECT_EQ(of("PLAY").valueInterface(), nullptr);
}

}  // namespace
}  // namespace tandem::test

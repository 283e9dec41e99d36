// What assistive technology reads and does.

#include <gtest/gtest.h>

#include <QAccessible>
#include <QCoreApplication>

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
  std::string accessible_name(const char* name) const { return of(name).text(QAccessible::Name).toStdString(); }
  static QAccessibleActionInterface& actions(QAccessibleInterface& of) {
    QAccessibleActionInterface* found = of.actionInterface();
    if (found == nullptr) throw std::runtime_error("no actions");
    return *found;
  }
  static void press(QAccessibleInterface& pressed) {
    actions(pressed).doAction(QAccessibleActionInterface::pressAction());
    QCoreApplication::sendPostedEvents();
  }
  void act(const char* name) const { press(of(name)); }
  bool acts(const char* name) const {
    return actions(of(name)).actionNames().contains(QAccessibleActionInterface::pressAction());
  }
  QAccessibleValueInterface& number(const char* name) const {
    QAccessibleValueInterface* found = of(name).valueInterface();
    if (found == nullptr) throw std::runtime_error("no number");
    return *found;
  }
  QAccessibleInterface& line(int index) const {
    QAccessibleInterface* found = of("PlayList").child(index);
    if (found == nullptr) throw std::runtime_error("no line");
    return *found;
  }
  WindowRig rig;
};

TEST_F(Spoken, EveryStopOfTheTabChainHasANameAndARole) {
  rig.show_board();
  for (const PanelItem* item : rig.window->items()) {
    if (item->place().tab == 0) continue;
    const std::string name(item->place().name);
    EXPECT_FALSE(accessible_name(name.c_str()).empty()) << name;
    EXPECT_NE(of(name.c_str()).role(), QAccessible::StaticText) << name;
    EXPECT_TRUE(acts(name.c_str()) || item->value_range().has_value() || name == "PlayList") << name;
  }
}

TEST_F(Spoken, RolesFitTheKindOfControl) {
  EXPECT_EQ(of("PLAY").role(), QAccessible::Button);
  EXPECT_EQ(of("Volume").role(), QAccessible::Dial);
  EXPECT_EQ(of("MMSwitch1").role(), QAccessible::Dial);
  EXPECT_EQ(of("sl0(3)").role(), QAccessible::Slider);
  EXPECT_EQ(of("MMLEDX2").role(), QAccessible::CheckBox);
  EXPECT_EQ(of("Bypass").role(), QAccessible::CheckBox);
  EXPECT_EQ(of("AMLed2").role(), QAccessible::RadioButton);
  EXPECT_EQ(of("MMLEDSpin7").role(), QAccessible::SpinBox);
  EXPECT_EQ(of("PlayList").role(), QAccessible::List);
  EXPECT_EQ(of("MeterVol").role(), QAccessible::ProgressBar);
}

TEST_F(Spoken, ValuesAreWhatIsShown) {
  rig.controls().LblPosition.Caption = "01:23";
  EXPECT_EQ(accessible_name("LblPosition"), "Position: 01:23");
  EXPECT_EQ(value("LblPosition"), "01:23");
  rig.controls().sl0[7].put(-4);
  EXPECT_EQ(accessible_name("sl0(7)"), "Equalizer 1K2 Hz, -4 dB");
  EXPECT_EQ(value("sl0(7)"), "-4 dB");
  rig.controls().Volume.put(16384);
  EXPECT_EQ(value("Volume"), "50 %");
  EXPECT_EQ(value("MeterVol"), "50 %");
  EXPECT_EQ(accessible_name("MeterVol"), "Volume 50 %");
  EXPECT_EQ(accessible_name("Volume"), "Volume");
  rig.controls().MMLEDSpin7.move(22050);  // the digits show the last four
  EXPECT_EQ(value("MMLEDSpin7"), "22050");
  rig.controls().MMSwitchX1.move(1);
  EXPECT_EQ(value("MMSwitchX1"), "V.U.");
  EXPECT_EQ(accessible_name("MMSwitchX1"), "Meter: V.U.");
  EXPECT_EQ(value("Bypass"), "EQ");
  EXPECT_EQ(accessible_name("Bypass"), "Equalizer: EQ");
  EXPECT_EQ(accessible_name("PAUSE"), "Pause");
  EXPECT_EQ(accessible_name("MMLEDLABELX1"), "SONG:");
  EXPECT_EQ(accessible_name("Label2(7)"), "1K2");
  EXPECT_EQ(accessible_name("dbLabel0(7)"), rig.controls().dbLabel0[7].Caption.get());
  rig.add_songs(2);
  rig.controls().PlayList.user_select(1);
  EXPECT_EQ(value("PlayList"), rig.controls().PlayList.List(1));
}

// A number that can be read but not moved.
TEST_F(Spoken, NumbersOfTheDisplaysAreReadOnly) {
  rig.controls().Volume.put(8192);
  EXPECT_EQ(number("MeterVol").currentValue().toInt(), 25);
  number("MeterVol").setCurrentValue(80);
  EXPECT_EQ(number("MeterVol").currentValue().toInt(), 25);
  EXPECT_EQ(of("MMSpectrum1").valueInterface(), nullptr);
  rig.controls().MMSwitchX1.move(1);
  rig.frame(0);
  EXPECT_EQ(of("MMSpectrum1").role(), QAccessible::ProgressBar);
  EXPECT_EQ(number("MMSpectrum1").currentValue().toInt(), -20);  // at rest
  EXPECT_EQ(number("MMMeterX2").minimumValue().toInt(), -20);
  EXPECT_EQ(number("MMMeterX2").maximumValue().toInt(), 3);
  EXPECT_EQ(number("MMLevelX1").currentValue().toInt(), 0);
}

TEST_F(Spoken, TheWindowHasTheProgramsName) {
  QAccessibleInterface* window = QAccessible::queryAccessibleInterface(rig.window.get());
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window->role(), QAccessible::Window);
  EXPECT_EQ(window->text(QAccessible::Name).toStdString(), "Tandem");
}

TEST_F(Spoken, LinesOfTheListAreItsChildren) {
  QAccessibleInterface& list = of("PlayList");
  EXPECT_EQ(list.childCount(), 0);
  rig.add_songs(12);
  ASSERT_EQ(list.childCount(), 12);
  EXPECT_EQ(list.child(12), nullptr);
  QAccessibleInterface& fourth = line(3);
  EXPECT_EQ(&fourth, list.child(3));
  EXPECT_EQ(list.indexOfChild(&fourth), 3);
  EXPECT_EQ(fourth.role(), QAccessible::ListItem);
  EXPECT_EQ(fourth.parent(), &list);
  EXPECT_EQ(fourth.text(QAccessible::Name).toStdString(), rig.controls().PlayList.List(3));
  const QPoint middle = fourth.rect().center();
  EXPECT_TRUE(control_box("PlayList").box().contains(rig.window->mapFromGlobal(middle)));
  EXPECT_EQ(list.childAt(middle.x(), middle.y()), &fourth);
  EXPECT_TRUE(line(11).state().offscreen);
  EXPECT_FALSE(fourth.state().selected);
  press(fourth);
  EXPECT_EQ(rig.controls().PlayList.ListIndex(), 3);
  EXPECT_TRUE(fourth.state().selected);
  rig.click(rig.window->mapFromGlobal(line(5).rect().center()));
  EXPECT_EQ(rig.controls().PlayList.ListIndex(), 5) << "the line lies where it is drawn";
  rig.focus("PlayList");
  EXPECT_TRUE(line(5).state().focused);
  EXPECT_EQ(list.focusChild(), &line(5));
  const QAccessibleInterface& last = line(11);
  rig.controls().PlayList.RemoveItem(0);
  EXPECT_FALSE(last.isValid());
}

TEST_F(Spoken, OnlyTheDisplayThatIsShownIsThere) {
  rig.controls().MMSwitchX1.move(0);
  rig.frame(0);
  EXPECT_EQ(accessible_name("MMSpectrum1"), "Spectrum analyser");
  EXPECT_FALSE(rig.item("MMMeterX2").isVisible());
  rig.controls().MMSwitchX1.move(1);
  rig.frame(0);
  EXPECT_TRUE(rig.item("MMMeterX2").isVisible());
  EXPECT_EQ(accessible_name("MMSpectrum1"), "Left level, dB");
  EXPECT_EQ(accessible_name("MMMeterX2"), "Right level, dB");
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
  EXPECT_EQ(accessible_name("MMSpectrum1"), "Oscilloscope");
  EXPECT_FALSE(rig.item("MMLevelX1").isVisible());
}

TEST_F(Spoken, LampsAndViewKeysAreOnOrOff) {
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

TEST_F(Spoken, ActionsAreThoseOfTheMouse) {
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

TEST_F(Spoken, ValuesAreSetAsByTheMouse) {
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
  rig.show_board();
  number("MMLEDSpin1").setCurrentValue(9);
  EXPECT_EQ(rig.controls().MMLEDSpin1.value(), 9);
  EXPECT_EQ(of("PLAY").valueInterface(), nullptr);
}

// The sound follows at once, and what was begun is looked after again, even when a dialog was open meanwhile.
TEST_F(Spoken, ActsAreReportedBeforeAndAfter) {
  std::vector<std::string> log;
  rig.user_action = [&log] { log.emplace_back("act"); };
  const auto log_change = [&log](ValuedControl& control) {
    control.change.connect([&log] { log.emplace_back("done"); });
  };
  const std::vector<std::string> expected{"act", "done", "act"};
  PanelControls& controls = rig.controls();
  controls.PLAY.click.connect([&log] { log.emplace_back("done"); });
  act("PLAY");
  EXPECT_EQ(log, expected);
  controls.MMPanelX1[1].click.connect([&log] { log.emplace_back("done"); });
  log.clear();
  act("MMPanelX1(1)");
  EXPECT_EQ(log, expected);
  log_change(controls.Bypass);
  log.clear();
  act("Bypass");
  EXPECT_EQ(log, expected);
  const std::pair<const char*, ValuedControl&> kNumbers[] = {
      {"Volume", controls.Volume}, {"MMSwitchX1", controls.MMSwitchX1}, {"SliderP", controls.SliderP}};
  for (const auto& [name, control] : kNumbers) {
    log_change(control);
    log.clear();
    number(name).setCurrentValue(control.value() == 1 ? 2 : 1);
    EXPECT_EQ(log, expected) << name;
  }
}

// Who presses SONG over the bus is answered before the dialog has closed.
TEST_F(Spoken, APressIsAnsweredBeforeItIsDone) {
  int clicks = 0;
  rig.controls().LoadSong.click.connect([&clicks] { ++clicks; });
  actions(of("LoadSong")).doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(clicks, 0);
  QCoreApplication::sendPostedEvents();
  EXPECT_EQ(clicks, 1);
}

TEST_F(Spoken, WhatIsHiddenOrDisabledIsNotMoved) {
  rig.make_small();
  const std::int32_t meter = rig.controls().MMSwitchX1.value();
  number("MMSwitchX1").setCurrentValue(meter == 0 ? 1 : 0);
  EXPECT_EQ(rig.controls().MMSwitchX1.value(), meter);
  const std::int32_t bypass = rig.controls().Bypass.value();
  act("Bypass");
  EXPECT_EQ(rig.controls().Bypass.value(), bypass);
  rig.controls().Volume.Enabled = false;
  number("Volume").setCurrentValue(1000);
  EXPECT_NE(rig.controls().Volume.value(), 1000);
}

}  // namespace
}  // namespace tandem::test

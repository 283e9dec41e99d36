// The push keys: by mouse, by their global keys, by Space and Return.

#include <gtest/gtest.h>

#include <algorithm>

#include "widgets/window_rig.h"

namespace tandem::test {
namespace {

struct KeyCase {
  const char* name;
  Button PanelControls::*button;
  Qt::Key key;
  Qt::KeyboardModifiers with;
};

const KeyCase kKeys[] = {{"PLAY", &PanelControls::PLAY, Qt::Key_P, Qt::ControlModifier},
                         {"PAUSE", &PanelControls::PAUSE, Qt::Key_Space, Qt::ControlModifier},
                         {"STOPBtn", &PanelControls::STOPBtn, Qt::Key_Period, Qt::ControlModifier},
                         {"NextBtn", &PanelControls::NextBtn, Qt::Key_N, Qt::ControlModifier},
                         {"LoadSong", &PanelControls::LoadSong, Qt::Key_O, Qt::ControlModifier},
                         {"ShowPlayList", &PanelControls::ShowPlayList, Qt::Key_F2, Qt::NoModifier},
                         {"ShowControls", &PanelControls::ShowControls, Qt::Key_F3, Qt::NoModifier},
                         {"Command2", &PanelControls::Command2, Qt::Key_0, Qt::ControlModifier},
                         {"UpList", &PanelControls::UpList, Qt::Key_Up, Qt::ControlModifier},
                         {"DownList", &PanelControls::DownList, Qt::Key_Down, Qt::ControlModifier},
                         {"LoadList", &PanelControls::LoadList, Qt::Key_L, Qt::ControlModifier},
                         {"SaveList", &PanelControls::SaveList, Qt::Key_S, Qt::ControlModifier}};

class PushKey : public testing::TestWithParam<KeyCase> {
 protected:
  PushKey() {
    button().press.connect([this] { events.emplace_back("press"); });
    button().release.connect([this] { events.emplace_back("release"); });
    button().click.connect([this] { events.emplace_back("click"); });
  }
  Button& button() { return rig.controls().*GetParam().button; }
  std::string name() const { return GetParam().name; }
  WindowRig rig;
  std::vector<std::string> events;
  const std::vector<std::string> whole_click{"press", "click", "release"};
};

TEST_P(PushKey, IsClickedByTheMouse) {
  rig.click(name());
  EXPECT_EQ(events, whole_click);
}

// A click may last as long as a dialog is open.
TEST_P(PushKey, ActsAreReportedBeforeAndAfter) {
  rig.user_action = [this] { events.emplace_back("act"); };
  rig.release({300, 60});
  events.clear();
  rig.key(GetParam().key, GetParam().with);
  const std::vector<std::string> expected{"act", "press", "click", "release", "act"};
  EXPECT_NE(std::search(events.begin(), events.end(), expected.begin(), expected.end()), events.end());
  rig.press(rig.middle(name()));
  events.clear();
  rig.release(rig.middle(name()));
  EXPECT_EQ(events, (std::vector<std::string>{"act", "click", "release", "act"}));
}

TEST_P(PushKey, LetGoElsewhereIsNoClick) {
  rig.press(rig.middle(name()));
  rig.move({300, 60});
  rig.release({300, 60});
  EXPECT_EQ(events, (std::vector<std::string>{"press", "release"}));
}

TEST_P(PushKey, TheRightButtonDoesNothing) {
  rig.click(rig.middle(name()), Qt::RightButton);
  EXPECT_TRUE(events.empty());
}

TEST_P(PushKey, ItsKeyWorksWhereverTheFocusIs) {
  rig.focus("Volume");
  rig.key(GetParam().key, GetParam().with);
  EXPECT_EQ(events, whole_click);
  EXPECT_EQ(rig.focused(), "Volume");
}

TEST_P(PushKey, SpaceAndReturnPressTheFocusedOne) {
  rig.focus(name());
  rig.key_down(Qt::Key_Space);
  EXPECT_EQ(events, (std::vector<std::string>{"press"}));
  rig.key_up(Qt::Key_Space);
  rig.key(Qt::Key_Return);
  EXPECT_EQ(events, (std::vector<std::string>{"press", "click", "release", "press", "click", "release"}));
}

TEST_P(PushKey, DisabledIgnoresMouseAndKeys) {
  button().Enabled = false;
  rig.click(name());
  rig.key(GetParam().key, GetParam().with);
  rig.focus(name());
  rig.key(Qt::Key_Space);
  EXPECT_TRUE(events.empty());
  button().Enabled = true;
  rig.click(name());
  EXPECT_EQ(events, whole_click);
}

TEST_P(PushKey, DisabledUnderThePointerIsReleased) {
  rig.press(rig.middle(name()));
  button().Enabled = false;
  EXPECT_EQ(events, (std::vector<std::string>{"press", "release"}));
  button().Enabled = true;
  rig.release(rig.middle(name()));
  EXPECT_EQ(events, (std::vector<std::string>{"press", "release"}));
}

// Else the next Space would press its neighbour.
TEST_P(PushKey, DisabledForAWhileKeepsTheFocus) {
  rig.focus(name());
  button().Enabled = false;
  EXPECT_EQ(rig.focused(), name());
  rig.key(Qt::Key_Space);
  EXPECT_TRUE(events.empty());
  button().Enabled = true;
  rig.key(Qt::Key_Space);
  EXPECT_EQ(events, whole_click);
}

std::string name_of(const testing::TestParamInfo<KeyCase>& info) { return info.param.name; }
INSTANTIATE_TEST_SUITE_P(All, PushKey, testing::ValuesIn(kKeys), name_of);

TEST(SmallWindow, KeysOfWhatIsOutsideDoNothing) {
  WindowRig rig;
  rig.make_small();
  for (const KeyCase& each : kKeys) {
    int clicks = 0;
    (rig.controls().*each.button).click.connect([&clicks] { ++clicks; });
    rig.key(each.key, each.with);
    const QRect window(0, 0, 262, 165);
    EXPECT_EQ(clicks, window.contains(control_box(each.name).box()) ? 1 : 0) << each.name;
  }
  const std::int32_t meter = rig.controls().MMSwitchX1.value();
  rig.key(Qt::Key_F4);
  EXPECT_EQ(rig.controls().MMSwitchX1.value(), meter);
}

TEST(LampButtons, AreClickedByLampCaptionAndSpace) {
  WindowRig rig;
  rig.show_board();
  int clicks = 0;
  rig.controls().MMLEDX3.click.connect([&clicks] { ++clicks; });
  rig.click("MMLEDX3");
  rig.click("Label5(2)");
  rig.click(rig.in("MMLEDX3", -2, -5));
  EXPECT_EQ(clicks, 3);
  rig.click(rig.in("MMLEDX3", -4, -5));
  EXPECT_EQ(clicks, 3);
  rig.focus("MMLEDX3");
  rig.key(Qt::Key_Space);
  EXPECT_EQ(clicks, 4);
}

TEST(LeadLamps, AreClickedInTheirWholeHitBoxAndBySpace) {
  WindowRig rig;
  rig.click(rig.in("AMLed3", 0, 15));
  EXPECT_EQ(rig.controls().AMLed3.LEDColor.get(), kLeadLit);
  rig.focus("AMLedOff");
  rig.key(Qt::Key_Space);
  EXPECT_EQ(rig.controls().AMLedOff.LEDColor.get(), kLeadLit);
  EXPECT_EQ(rig.controls().AMLed3.LEDColor.get(), kLeadDark);
}

TEST(LeadLamps, ArrowsMoveTheFocusWithinTheRow) {
  WindowRig rig;
  rig.focus("AMLedOff");
  rig.key(Qt::Key_Left);
  EXPECT_EQ(rig.focused(), "AMLedOff");
  for (const char* name : {"AMLed1", "AMLed2", "AMLed3", "AMLed3"}) {
    rig.key(Qt::Key_Right);
    EXPECT_EQ(rig.focused(), name);
  }
  rig.key(Qt::Key_Left);
  EXPECT_EQ(rig.focused(), "AMLed2");
}

}  // namespace
}  // namespace tandem::test

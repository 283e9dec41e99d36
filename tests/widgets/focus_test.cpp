// The tab chain and what becomes of the focus when its control goes away.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "widgets/window_rig.h"

namespace tandem::test {
namespace {

using Names = std::vector<std::string>;
using testing::ElementsAreArray;

const Names kTransport{"PLAY", "PAUSE", "STOPBtn", "NextBtn", "LoadSong", "Slider1", "Volume"};
const Names kMix{"SliderP",    "Command2",     "AMLedOff", "AMLed1",       "AMLed2",      "AMLed3",
                 "MMSwitchX1", "BufferSwitch", "Bypass",   "ShowPlayList", "ShowControls"};
const Names kList{"PlayList", "UpList", "DownList", "LoadList", "SaveList"};
const Names kBoardKeys{"MMLEDX1",    "MMLEDX2",    "MMLEDX3",    "MMLEDX4",    "MMLEDX5",    "MMLEDX6",
                       "MMSwitch1",  "MMSwitch2",  "MMSwitch3",  "MMSwitch4",  "MMLEDSpin7", "MMLEDSpin2",
                       "MMLEDSpin3", "MMLEDSpin6", "MMLEDSpin1", "MMLEDSpin5", "MMLEDSpin4", "MMLEDSpin8"};
const Names kHead{"Minimise", "Close"};

Names joined(std::initializer_list<Names> parts) {
  Names all;
  for (const Names& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

TEST(TabOrder, GoesThroughTheList) {
  WindowRig rig;
  EXPECT_THAT(rig.tab_round(), ElementsAreArray(joined({kTransport, kMix, kList, kHead})));
}

TEST(TabOrder, HasOneStopForTheEqualizer) {
  WindowRig rig;
  rig.show_equalizer();
  EXPECT_THAT(rig.tab_round(), ElementsAreArray(joined({kTransport, kMix, {"sl0(0)"}, kHead})));
}

TEST(TabOrder, TheStopOfTheEqualizerIsTheFaderLastUsed) {
  WindowRig rig;
  rig.show_equalizer();
  rig.click("sl0(9)");
  EXPECT_THAT(rig.tab_round(), ElementsAreArray(joined({kTransport, kMix, {"sl0(9)"}, kHead})));
  rig.focus("sl0(9)");
  rig.key(Qt::Key_Right);
  EXPECT_THAT(rig.tab_round(), ElementsAreArray(joined({kTransport, kMix, {"sl0(10)"}, kHead})));
}

TEST(TabOrder, GoesThroughTheBoard) {
  WindowRig rig;
  rig.show_board();
  EXPECT_THAT(rig.tab_round(), ElementsAreArray(joined({kTransport, kMix, kList, kBoardKeys, kHead})));
}

TEST(TabOrder, OfTheSmallWindowIsTransportAndHead) {
  WindowRig rig;
  rig.make_small();
  EXPECT_THAT(rig.tab_round(), ElementsAreArray(joined({kTransport, kHead})));
}

TEST(TabOrder, GoesBackToo) {
  WindowRig rig;
  rig.focus("PLAY");
  rig.key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(rig.focused(), "Close");
  rig.focus("SliderP");
  rig.key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(rig.focused(), "Volume");
}

TEST(Focus, IsOnNoControlFromTheStart) {
  WindowRig rig;
  EXPECT_EQ(rig.focused(), "");
  rig.key(Qt::Key_Tab);
  EXPECT_EQ(rig.focused(), "PLAY");
}

TEST(Focus, GoesToPlayWhenItsControlDisappears) {
  WindowRig rig;
  rig.focus("PlayList");
  rig.key(Qt::Key_F2);
  EXPECT_EQ(rig.focused(), "PLAY");
  rig.focus("sl0(3)");
  rig.key(Qt::Key_F2);
  EXPECT_EQ(rig.focused(), "PLAY");
  rig.key(Qt::Key_F3);
  rig.focus("MMLEDSpin4");
  rig.key(Qt::Key_F3);
  EXPECT_EQ(rig.focused(), "PLAY");
  rig.focus("SliderP");
  rig.make_small();
  EXPECT_EQ(rig.focused(), "PLAY");
}

TEST(Focus, StaysWhereItIsWhenItsControlStays) {
  WindowRig rig;
  rig.focus("Volume");
  rig.key(Qt::Key_F2);
  rig.key(Qt::Key_F3);
  rig.make_small();
  EXPECT_EQ(rig.focused(), "Volume");
}

// Keys of a control that is not there must not reach it.
TEST(Focus, AKeyAfterThatMovesNothingHidden) {
  WindowRig rig;
  rig.show_equalizer();
  rig.focus("sl0(3)");
  rig.make_small();
  rig.key(Qt::Key_Up);
  EXPECT_EQ(rig.controls().sl0[3].value(), 0);
}

// Pixels of the ring's own colour about an item.
int ring_pixels(const WindowRig& rig, const std::string& name) {
  const QImage picture = rig.window->grab().toImage();
  const QRect box = rig.item(name).painted_box() & picture.rect();
  int count = 0;
  for (int y = box.top(); y <= box.bottom(); ++y)
    for (int x = box.left(); x <= box.right(); ++x) {
      const QColor colour = picture.pixelColor(x, y);
      const auto near = [](int a, int b) { return std::abs(a - b) <= 24; };
      if (near(colour.red(), 0x7F) && near(colour.green(), 0xD1) && near(colour.blue(), 0xFF)) ++count;
    }
  return count;
}

TEST(Focus, OfTheKeyboardIsShownOnEveryStop) {
  WindowRig rig;
  rig.show_board();
  for (const bool list : {true, false}) {
    if (!list) rig.show_equalizer();
    for (const std::string& name : rig.tab_round()) {
      rig.focus(name == "Close" || name == "Minimise" ? "PLAY" : "Close");
      const int bare = ring_pixels(rig, name);
      rig.focus(name);
      EXPECT_GE(ring_pixels(rig, name), bare + 20) << name;
    }
  }
}

// Only what a control does with a key shows where the keys go.
TEST(Focus, IsNotShownByKeysOfTheWindow) {
  WindowRig rig;
  rig.click("Volume");
  const int bare = ring_pixels(rig, "Volume");
  rig.key(Qt::Key_F3);
  rig.key(Qt::Key_Control);
  rig.key(Qt::Key_A);
  EXPECT_EQ(rig.focused(), "Volume");
  EXPECT_EQ(ring_pixels(rig, "Volume"), bare);
  rig.key(Qt::Key_Down);
  EXPECT_GT(ring_pixels(rig, "Volume"), bare);
}

TEST(Focus, TheMouseOnTheHeadLeavesItWhereItIs) {
  WindowRig rig;
  rig.focus("Volume");
  rig.click("Minimise");
  EXPECT_EQ(rig.focused(), "Volume");
}

TEST(Focus, TheMouseGivesItWithoutARing) {
  WindowRig rig;
  const auto ring_box = [&rig](const char* name) {
    const QImage picture = rig.window->grab().toImage();
    const QRect box = control_box(name).box();
    return picture.pixelColor(box.left() + 10, box.top() - 2);
  };
  rig.show_equalizer();
  const QColor bare = ring_box("MMSwitchX1");
  rig.click("MMSwitchX1");
  EXPECT_EQ(rig.focused(), "MMSwitchX1");
  EXPECT_EQ(ring_box("MMSwitchX1"), bare);
}

// Nor does PLAY get a ring from a control that had none.
TEST(Focus, OfAControlThatDisappearsIsShownOnPlayIfItWasShownThere) {
  WindowRig rig;
  rig.click("Volume");
  const int bare = ring_pixels(rig, "PLAY");
  for (const bool by_mouse : {true, false}) {
    if (by_mouse) rig.click("PlayList");
    if (!by_mouse) rig.focus("PlayList");
    ASSERT_EQ(rig.focused(), "PlayList");
    rig.controls().ShowPlayList.click.raise();
    EXPECT_EQ(rig.focused(), by_mouse ? "" : "PLAY");
    const int ring = ring_pixels(rig, "PLAY") - bare;
    EXPECT_TRUE(by_mouse ? ring == 0 : ring >= 20) << ring;
    rig.controls().ShowPlayList.click.raise();
  }
}

}  // namespace
}  // namespace tandem::test

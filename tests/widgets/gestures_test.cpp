// What a user of other players does without a manual: Space, Enter, the wheel over a display, a double click on a
// fader.

#include <gtest/gtest.h>

#include "paint/controls/song_list.h"
#include "widgets/items/song_list_item.h"
#include "widgets/window_rig.h"

namespace tandem::test {
namespace {

constexpr std::int32_t kPercent = 328;

class Gestures : public testing::Test {
 protected:
  PanelControls& controls() { return rig.controls(); }
  bool is_playing() { return controls().PLAY.Picture == 1; }
  bool is_paused() { return controls().PAUSE.BackColor == clYellow; }
  std::int32_t volume() { return controls().Volume.value(); }
  QPoint row(int index) const { return list_row_box(control_box("PlayList").box(), index, 0).center().toPoint(); }
  WindowRig rig;
};

TEST_F(Gestures, AClickGivesNoFocusToKeysLampsAndSwitches) {
  rig.show_board();
  for (const char* name : {"PLAY", "STOPBtn", "ShowPlayList", "AMLed1", "Command2", "BufferSwitch", "MMLEDX1"}) {
    rig.click(name);
    EXPECT_EQ(rig.focused(), "") << name;
  }
}

TEST_F(Gestures, SpaceAfterAClickOnPlayPausesAndPlaysOn) {
  rig.add_songs(2, 5);
  rig.click("PLAY");
  rig.player->run(1000);
  const std::int32_t before = controls().Slider1.value();
  ASSERT_GT(before, 0);
  rig.key(Qt::Key_Space);
  EXPECT_TRUE(is_paused());
  rig.key(Qt::Key_Space);
  EXPECT_FALSE(is_paused());
  rig.player->run(1000);
  EXPECT_GT(controls().Slider1.value(), before) << "not from its begin";
}

TEST_F(Gestures, SpaceStartsWhatIsStopped) {
  rig.add_songs(2);
  rig.key(Qt::Key_Space);
  EXPECT_TRUE(is_playing());
  EXPECT_FALSE(is_paused());
}

TEST_F(Gestures, SpaceOnAControlOfTheKeyboardIsThatControls) {
  rig.add_songs(1);
  rig.focus("ShowControls");
  rig.key(Qt::Key_Space);
  EXPECT_EQ(rig.window->height(), 426);
  EXPECT_FALSE(is_playing());
}

TEST_F(Gestures, SpaceOnAFaderOrTheListIsPause) {
  rig.add_songs(3, 5);
  rig.click("PLAY");
  rig.click(row(1));
  ASSERT_EQ(rig.focused(), "PlayList");
  rig.key(Qt::Key_Space);
  EXPECT_TRUE(is_paused());
  rig.click("SliderP");
  rig.key(Qt::Key_Space);
  EXPECT_FALSE(is_paused());
}

TEST_F(Gestures, EnterInTheListPlaysTheSelectedLine) {
  rig.add_songs(3, 5);
  rig.click(row(1));
  rig.key(Qt::Key_Return);
  EXPECT_TRUE(is_playing());
  EXPECT_EQ(rig.player->program.state.CurrentSong, 2);
}

TEST_F(Gestures, TheFocusRingGoesWithTheFirstPressOfTheMouse) {
  rig.focus("STOPBtn");
  ASSERT_TRUE(rig.item("STOPBtn").shows_focus());
  rig.click("NextBtn");
  EXPECT_FALSE(rig.item("STOPBtn").shows_focus());
}

TEST_F(Gestures, AKeyOfTheKeyboardIsNotPressedBySpaceAfterTheMouseWasUsed) {
  rig.add_songs(2, 5);
  rig.focus("PLAY");
  rig.key(Qt::Key_Space);
  ASSERT_TRUE(is_playing());
  rig.player->run(1000);
  const std::int32_t before = controls().Slider1.value();
  rig.click(rig.middle("INDIC"));
  EXPECT_EQ(rig.focused(), "");
  rig.key(Qt::Key_Space);
  EXPECT_TRUE(is_paused());
  EXPECT_EQ(controls().Slider1.value(), before) << "not from its begin";
}

TEST_F(Gestures, AFaderKeepsItsArrowsAfterTheMouseWasUsed) {
  rig.focus("Volume");
  rig.click("STOPBtn");
  EXPECT_EQ(rig.focused(), "Volume");
  EXPECT_FALSE(rig.item("Volume").shows_focus());
}

TEST_F(Gestures, TheWheelOverADisplayTurnsTheVolume) {
  for (const char* name : {"SongLabel", "MMPanelX1(1)", "MMSpectrum1"}) {
    const std::int32_t before = volume();
    rig.wheel(name, -1);
    EXPECT_EQ(volume(), before - 3 * kPercent) << name;
    rig.wheel(rig.middle(name), -1, Qt::ControlModifier);
    EXPECT_EQ(volume(), before - 4 * kPercent) << name;
  }
  rig.wheel("SongLabel", 20);
  EXPECT_EQ(volume(), 32768);
  EXPECT_EQ(rig.window->scale(), 1);
}

TEST_F(Gestures, AFineWheelThatTurnsBackBeginsANewNotch) {
  const std::int32_t before = volume();
  const QPoint display = rig.middle("MMSpectrum1");
  rig.fine_wheel(display, 90);
  rig.fine_wheel(display, -90);
  EXPECT_EQ(volume(), before);
  rig.fine_wheel(display, -30);
  EXPECT_EQ(volume(), before - 3 * kPercent) << "120 parts downward, whatever was turned upward before";
}

TEST_F(Gestures, APartOfANotchForTheSizeIsNotTheVolumes) {
  const std::int32_t before = volume();
  rig.fine_wheel(rig.middle("PLAY"), -100, Qt::ControlModifier);
  rig.fine_wheel(rig.middle("MMSpectrum1"), -100);
  EXPECT_EQ(volume(), before);
  rig.fine_wheel(rig.middle("MMSpectrum1"), -20);
  EXPECT_EQ(volume(), before - 3 * kPercent);
}

TEST_F(Gestures, ADoubleClickBringsAFaderToItsMiddle) {
  rig.show_equalizer();
  rig.double_click(rig.in("sl0(4)", 11, 15));
  EXPECT_EQ(controls().sl0[4].value(), 0);
  EXPECT_EQ(controls().dbLabel0[4].Caption.get(), " 0");
  rig.double_click(rig.in("SliderP", 10, 12));
  EXPECT_EQ(controls().SliderP.value(), 0);
  EXPECT_FALSE(controls().SliderP.held());
}

TEST_F(Gestures, QuickClicksOnTheScrollBarAllCount) {
  rig.add_songs(60);
  rig.painted();  // the list has followed what was added
  const QPoint below = list_track_box(control_box("PlayList").box()).bottomLeft().toPoint() + QPoint(3, -3);
  for (int i = 0; i < 2; ++i) rig.double_click(below);
  EXPECT_EQ(static_cast<SongListItem&>(rig.item("PlayList")).top(), 40);
}

}  // namespace
}  // namespace tandem::test

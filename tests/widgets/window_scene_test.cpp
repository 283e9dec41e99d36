// What the window shows of its controls: those that lie in its size and view, each in the colour of its state.

#include <gtest/gtest.h>

#include <set>

#include "widgets/window_rig.h"

namespace tandem::test {
namespace {

struct View {
  QSize size;
  bool list;
};

bool stands_in(const ControlBox& control, const View& view) {
  if (control.group == ControlGroup::Chrome) return true;
  if (!QRect(QPoint(), view.size).contains(control.box())) return false;
  if (control.group == ControlGroup::List) return view.list;
  return control.group != ControlGroup::Equalizer || !view.list;
}

// Those that a state of the player shows or hides wherever they lie: gauge or pitch lamps, and the displays.
bool comes_and_goes(const std::string& name) {
  return std::set<std::string>{"MeterVol", "LED1", "LED2", "LED3", "MMLevelX1", "MMMeterX2"}.contains(name);
}

void expect_view(const WindowRig& rig, const View& view) {
  ASSERT_EQ(rig.window->size(), view.size);
  for (const PanelItem* item : rig.window->items()) {
    const std::string name(item->place().name);
    if (comes_and_goes(name)) continue;
    EXPECT_EQ(item->isVisible(), stands_in(item->place(), view)) << name << " in " << view.size.height();
  }
}

TEST(WindowScene, EverySizeAndViewHasItsControls) {
  WindowRig rig;
  expect_view(rig, {{607, 258}, true});
  rig.show_equalizer();
  expect_view(rig, {{607, 258}, false});
  rig.show_board();
  expect_view(rig, {{607, 426}, false});
  rig.key(Qt::Key_F2);
  expect_view(rig, {{607, 426}, true});
  rig.make_small();
  expect_view(rig, {{262, 165}, true});
}

class WindowColours : public testing::Test {
 protected:
  // A frame shows its colour 1 px inside the left edge at half height.
  QRgb frame_of(const std::string& name) {
    const QRect box = control_box(name).box();
    return rig.window->grab(QRect(box.left() + 1, box.center().y(), 1, 1)).toImage().pixel(0, 0) | 0xFF000000U;
  }
  QRgb at(const std::string& name, int x, int y) {
    return rig.window->grab(QRect(rig.in(name, x, y), QSize(1, 1))).toImage().pixel(0, 0) | 0xFF000000U;
  }
  PanelControls& controls() { return rig.controls(); }
  WindowRig rig;
};

TEST_F(WindowColours, TransportKeysHaveFramesOfTheirOwn) {
  EXPECT_EQ(frame_of("PLAY"), 0xFF4C5259);
  EXPECT_EQ(frame_of("STOPBtn"), 0xFF7A2A20);
  EXPECT_EQ(frame_of("PAUSE"), 0xFF808000);
  EXPECT_EQ(frame_of("NextBtn"), 0xFFC04000);
  EXPECT_EQ(frame_of("LoadSong"), 0xFF808080);
  controls().PLAY.Picture = 1;
  controls().STOPBtn.Picture = 4;
  controls().PAUSE.BackColor = clYellow;
  controls().NextBtn.BackColor = clSilver;
  controls().NextBtn.Enabled = false;
  EXPECT_EQ(frame_of("PLAY"), 0xFF1F7A33);
  EXPECT_EQ(frame_of("STOPBtn"), 0xFF4C5259);
  EXPECT_EQ(frame_of("PAUSE"), 0xFFFFFF00);
  EXPECT_EQ(frame_of("NextBtn"), 0xFFC0C0C0);
  controls().NextBtn.Enabled = true;
  controls().NextBtn.BackColor = kNextAfter;
  EXPECT_EQ(frame_of("NextBtn"), 0xFF8080FF);
  rig.press(rig.middle("LoadSong"));
  EXPECT_EQ(frame_of("LoadSong"), 0xFFE0E0E0);
  rig.move({300, 60});
  rig.release({300, 60});
  EXPECT_EQ(frame_of("LoadSong"), 0xFF808080);
}

TEST_F(WindowColours, ViewKeysAndStudShowWhatIsOpen) {
  EXPECT_EQ(frame_of("ShowPlayList"), 0xFF00FFFF);
  EXPECT_EQ(frame_of("ShowControls"), 0xFF008000);
  rig.key(Qt::Key_F2);
  rig.key(Qt::Key_F3);
  EXPECT_EQ(frame_of("ShowPlayList"), 0xFF0000FF);
  EXPECT_EQ(frame_of("ShowControls"), 0xFF00FF00);
  EXPECT_EQ(at("Command2", 6, 6), 0xFFC0C0C0);
  rig.press(rig.middle("Command2"));
  while (rig.frame(.1)) {
  }
  EXPECT_EQ(at("Command2", 6, 6), 0xFF808080) << "under the pointer too";
  rig.release(rig.middle("Command2"));
}

TEST_F(WindowColours, LampsAreLitAndDark) {
  rig.show_board();
  controls().AMLed1.click.raise();
  EXPECT_EQ(at("AMLed1", 9, 9), 0xFFFF8000);
  EXPECT_EQ(at("AMLed2", 9, 9), 0xFF804000);
  for (const char* lamp : {"MMLEDX1", "MMLEDX2", "MMLEDX3", "MMLEDX4", "MMLEDX5"}) {
    const QRgb before = at(lamp, 1, 6);
    EXPECT_TRUE(before == 0xFF008000 || before == 0xFF00FF00) << lamp;
    rig.click(rig.middle(lamp));
    EXPECT_EQ(at(lamp, 1, 6), before == 0xFF008000 ? 0xFF00FF00 : 0xFF008000) << lamp;
  }
  controls().MMLEDX6.LEDColor = clYellow;
  EXPECT_EQ(at("MMLEDX6", 1, 6), 0xFFFFFF00);
  controls().MMLEDX6.LEDColor = clOlive;
  EXPECT_EQ(at("MMLEDX6", 1, 6), 0xFF808000);
}

}  // namespace
}  // namespace tandem::test

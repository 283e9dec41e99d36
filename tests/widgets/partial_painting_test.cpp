// Painted box by box under a busy user, the window looks as if it had been painted at once: no seams between boxes, and
// nothing left of light, shadow and focus. Run at 100 % and, by other test entries, at other scales.

#include <gtest/gtest.h>

#include <QBackingStore>
#include <algorithm>
#include <cstdlib>
#include <random>

#include "displays/spectrum/spectrum_settings.h"
#include "support/picture_difference.h"
#include "widgets/window_rig.h"

namespace tandem::test {
namespace {

// Of a gradient whose spans begin elsewhere under another clip.
constexpr int kGradientRounding = 2;

class PartialPainting : public testing::Test {
 protected:
  PartialPainting() { rig.add_songs(14); }

  void pass(double seconds) {
    for (double passed = 0; passed < seconds; passed += 1.0 / 60) {
      std::vector<SoundFrame> sound(735);
      for (SoundFrame& frame : sound) frame = {noise(), noise()};
      rig.window->visual().feed(sound);
      rig.frame(1.0 / 60);
    }
    rig.painted();
  }
  float noise() { return std::uniform_real_distribution<float>(-.5F, .5F)(random); }

  // What stands on the screen against a picture drawn again; the place of the first pixel that differs.
  void expect_whole(const std::string& after) {
    rig.painted();
    const auto* store = dynamic_cast<QImage*>(rig.window->backingStore()->paintDevice());
    ASSERT_NE(store, nullptr);
    const QImage stands = store->convertToFormat(QImage::Format_RGB32);
    const QImage again = rig.window->grab().toImage().convertToFormat(QImage::Format_RGB32);
    constexpr int kCorner = 8;  // the desktop cuts them round
    for (int y = kCorner; y < std::min(stands.height(), again.height()) - kCorner; ++y) {
      for (int x = 0; x < std::min(stands.width(), again.width()); ++x) {
        ASSERT_LE(difference(stands.pixel(x, y), again.pixel(x, y)), kGradientRounding)
            << x << ' ' << y << " after " << after;
      }
    }
  }

  void press_and_drag(const std::string& name) {
    rig.press(rig.middle(name));
    pass(.05);
    rig.move(rig.middle(name) + QPoint(9, -14), Qt::NoModifier);
    pass(.05);
    rig.release(rig.middle(name) + QPoint(9, -14));
  }

  WindowRig rig;
  std::minstd_rand random{7};
};

TEST_F(PartialPainting, IsRightUnderAPointerThatGoesEverywhere) {
  rig.show_board();
  for (int i = 0; i < 60; ++i) {
    const auto at = [this](int end) { return std::uniform_int_distribution<int>(0, end - 1)(random); };
    rig.move({at(607), at(426)});
    pass(.04);
  }
  expect_whole("moves");
}

TEST_F(PartialPainting, IsRightAfterPressesAndDrags) {
  rig.controls().Slider1.put_maximum(200'000);
  for (const char* name : {"Volume", "SliderP", "Command2", "STOPBtn", "PAUSE", "AMLed2", "BufferSwitch", "Bypass",
                           "PlayList", "UpList", "Slider1"}) {
    press_and_drag(name);
    pass(.1);
    expect_whole(name);
  }
  EXPECT_GT(rig.controls().Slider1.value(), 0);
  rig.show_equalizer();
  for (const char* name : {"sl0(0)", "sl0(7)", "sl0(14)"}) press_and_drag(name);
  expect_whole("faders");
}

TEST_F(PartialPainting, IsRightAfterTheFocusHasGoneRound) {
  rig.show_board();
  rig.focus("PLAY");
  for (int i = 0; i < 60; ++i) {
    rig.key(Qt::Key_Tab);
    pass(.02);
  }
  expect_whole("a round of the focus");
}

TEST_F(PartialPainting, IsRightAfterTheFocusHasLeftTheTimeSliderAtItsBegin) {
  rig.focus("Slider1");
  ASSERT_EQ(rig.focused(), "Slider1");
  ASSERT_EQ(rig.controls().Slider1.value(), 0);
  pass(.05);
  rig.focus("Volume");
  pass(.05);
  expect_whole("the focus");
}

// The position moves the cap by parts of a pixel, and what is painted beside it goes over the cap's edge.
TEST_F(PartialPainting, IsRightWhileASongPlays) {
  Slider& position = rig.controls().Slider1;
  position.put_maximum(200'000);
  const auto play = [&](const std::string& how) {
    for (int step = 0; step < 60; ++step) {
      position.Position = position.value() + 200;
      rig.move(rig.middle(step % 2 == 0 ? "PLAY" : "PAUSE"));
      pass(.03);
      if (step % 3 == 0) expect_whole(how);
    }
  };
  play("steps under the pointer");
  position.Position = 200'000;
  expect_whole("a jump to the end");
  position.Position = 0;
  expect_whole("a jump to the begin");
  rig.focus("Slider1");
  play("steps with the focus");
  position.Position = 200'000;
  expect_whole("a jump with the focus");
}

TEST_F(PartialPainting, IsRightAfterThePointerHasLeftTheDisplayBesideAFocusedButton) {
  rig.focus("Close");
  pass(.05);
  for (const QPoint& at : {QPoint(500, 60), QPoint(260, 150), QPoint(500, 60)}) {
    rig.move(at);
    pass(.1);
    expect_whole("the pointer");
  }
}

TEST_F(PartialPainting, ASteppingTitleIsPaintedOnce) {
  rig.controls().SongLabel.Scrolling = true;
  rig.controls().SongLabel.Caption = "A TITLE LONGER THAN ITS CELLS.MP3   ";
  rig.frame(0);
  rig.frame(.8);
  for (int i = 0; i < 10; ++i) {
    rig.painted();
    rig.frame(.11);
    EXPECT_TRUE(rig.painted().isEmpty()) << "step " << i << " is painted once more";
    expect_whole("a step of the title");
  }
}

TEST_F(PartialPainting, IsRightAfterEveryDisplayAndKind) {
  for (int display = 0; display < 3; ++display) {
    rig.controls().MMSwitchX1.move(display);
    pass(.5);
    expect_whole("display " + std::to_string(display));
  }
  rig.controls().MMSwitchX1.move(0);
  rig.controls().MMLEDX5.click.raise();
  for (int kind = 0; kind < kAnalyserKinds; ++kind) {
    rig.controls().MMSwitch1.move(kind);
    pass(.3);
    expect_whole("kind " + std::to_string(kind));
  }
}

TEST_F(PartialPainting, IsRightAfterSizesListsAndScrolling) {
  rig.controls().SongLabel.Caption = "A TITLE LONGER THAN ITS CELLS.MP3   ";
  rig.controls().SongLabel.Scrolling = true;
  rig.make_small();
  for (int i = 0; i < 20; ++i) {
    pass(.11);
    expect_whole("steps of the title");
  }
  rig.key(Qt::Key_M, Qt::ControlModifier);
  pass(.2);
  rig.wheel("PlayList", -1);
  pass(.1);
  expect_whole("a turn of the wheel");
  rig.show_equalizer();
  rig.controls().sl0[3].put(-9);
  pass(.1);
  expect_whole("the equalizer");
  rig.key(Qt::Key_F2);
  rig.show_board();
  pass(.2);
  expect_whole("the board");
}

}  // namespace
}  // namespace tandem::test

// Nothing is painted of what cannot be seen: a window that other windows hide, and displays that are hidden.

#include <gtest/gtest.h>

#include <QBackingStore>

#include "widgets/window_rig.h"

namespace tandem::test {
namespace {

TEST(CoveredWindow, PaintsNothingUntilItIsSeenAgain) {
  WindowRig rig;
  EXPECT_TRUE(rig.window->exposed());
  rig.window->set_covered(true);
  EXPECT_FALSE(rig.window->exposed());
  rig.controls().LblPosition.Caption = "01:23";
  rig.controls().Volume.move(1000);
  EXPECT_TRUE(rig.painted().isEmpty());
  const int wanted = rig.frames_wanted;
  rig.window->set_covered(false);
  EXPECT_TRUE(rig.window->exposed());
  EXPECT_GT(rig.frames_wanted, wanted);
  EXPECT_EQ(rig.painted().boundingRect(), rig.window->rect());
}

// Its keys work under another window, but not while it is minimised.
TEST(CoveredWindow, IsAttendedWhileItHasTheKeys) {
  WindowRig rig;
  rig.window->set_covered(true);
  EXPECT_TRUE(rig.window->attended());
  rig.window->showMinimized();
  EXPECT_FALSE(rig.window->attended());
}

TEST(CoveredWindow, StaysAsItIsWhenReportedTwice) {
  WindowRig rig;
  rig.window->set_covered(false);
  EXPECT_TRUE(rig.painted().isEmpty());
}

std::vector<SoundFrame> loud_sound() {
  std::vector<SoundFrame> sound(735);
  for (std::size_t i = 0; i < sound.size(); ++i)
    sound[i] = i / 8 % 2 == 0 ? SoundFrame{.5F, .5F} : SoundFrame{-.5F, -.5F};
  return sound;
}

void pass_with_sound(WindowRig& rig, int frames) {
  for (int i = 0; i < frames; ++i) {
    rig.window->visual().feed(loud_sound());
    rig.frame(1.0 / 60);
  }
}

TEST(CoveredWindow, DrawsNoDisplayUntilItIsSeenAgain) {
  WindowRig rig;
  const auto stands = [&rig] { return dynamic_cast<QImage*>(rig.window->backingStore()->paintDevice())->copy(); };
  rig.painted();
  const QImage before = stands();
  rig.window->set_covered(true);
  pass_with_sound(rig, 5);
  EXPECT_TRUE(rig.painted().isEmpty());
  EXPECT_EQ(stands(), before);
  rig.window->set_covered(false);
  rig.painted();
  EXPECT_NE(stands(), before);
}

class HiddenDisplay : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Each, HiddenDisplay, testing::Range(0, 3));

// The displays stand still while the small window hides them: what they showed is long over when they come back.
TEST_P(HiddenDisplay, BeginsAtRestWhenItComesBack) {
  WindowRig rig;
  rig.controls().MMSwitchX1.move(GetParam());
  while (rig.frame(1)) {
  }
  const auto display = [&rig] { return rig.window->grab(control_box("Display well").box()).toImage(); };
  const QImage at_rest = display();
  pass_with_sound(rig, 20);
  ASSERT_NE(display(), at_rest);
  rig.make_small();
  rig.frame(1);
  rig.key(Qt::Key_M, Qt::ControlModifier);
  EXPECT_EQ(display(), at_rest);
}

}  // namespace
}  // namespace tandem::test

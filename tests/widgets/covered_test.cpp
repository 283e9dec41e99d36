// Nothing is painted of a window that other windows hide.

#include <gtest/gtest.h>

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

TEST(CoveredWindow, StaysAsItIsWhenToldTwice) {
  WindowRig rig;
  rig.window->set_covered(false);
  EXPECT_TRUE(rig.painted().isEmpty());
}

}  // namespace
}  // namespace tandem::test

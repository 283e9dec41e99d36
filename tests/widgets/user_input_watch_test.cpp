#include "platform/desktop/user_input_watch.h"

#include <gtest/gtest.h>

#include "widgets/window_rig.h"

namespace tandem::test {
namespace {

TEST(UserInputWatch, HearsOfEveryMoveOfTheUserAndOfNothingElse) {
  WindowRig rig;
  int moves = 0;
  const UserInputWatch watch([&moves] { ++moves; });
  const auto moved = [&moves] { return std::exchange(moves, 0) > 0; };
  rig.player->run(1000);
  for (int i = 0; i < 10; ++i) rig.frame(1.0 / 60);
  rig.controls().LblPosition.Caption = "01:23";
  rig.painted();
  EXPECT_FALSE(moved()) << "the panel moves by itself";
  rig.move(rig.middle("PLAY"));
  EXPECT_TRUE(moved());
  rig.click("PLAY");
  EXPECT_TRUE(moved());
  rig.wheel("Volume", 1);
  EXPECT_TRUE(moved());
  rig.key(Qt::Key_Tab);
  EXPECT_TRUE(moved());
}

}  // namespace
}  // namespace tandem::test

#include "engine/render/mix_point_wait.h"

#include <gtest/gtest.h>

namespace tandem {
namespace {

constexpr std::int64_t kPatience = 30;

class MixPointWaitTest : public testing::Test {
 protected:
  bool holds(std::int64_t now) { return hold_.holds({&positions_[0], &positions_[1]}, now, kPatience); }

  std::array<DeckPosition, 2> positions_;
  MixPointWait hold_;
};

TEST_F(MixPointWaitTest, HoldsFromTheFrameOnAndNotForEver) {
  hold_.put(1, 7, 1000);
  positions_[1].put(7, 999);
  EXPECT_FALSE(holds(100));
  positions_[1].put(7, 1000);
  EXPECT_TRUE(holds(110));
  EXPECT_TRUE(holds(139));
  EXPECT_FALSE(holds(140));
  EXPECT_FALSE(holds(1000));
}

TEST_F(MixPointWaitTest, TheSameMomentGivenAgainIsNotWaitedForAgain) {
  hold_.put(0, 1, 10);
  positions_[0].put(1, 10);
  EXPECT_TRUE(holds(0));
  hold_.put(0, 1, 10);
  EXPECT_FALSE(holds(30));
  hold_.put(0, 1, 11);
  positions_[0].put(1, 11);
  EXPECT_TRUE(holds(40)) << "another one is";
}

TEST_F(MixPointWaitTest, AnotherSongOrAnotherDeckIsNotHeld) {
  hold_.put(0, 3, 10);
  positions_[0].put(2, 500);
  positions_[1].put(3, 500);
  EXPECT_FALSE(holds(0));
}

TEST_F(MixPointWaitTest, ClearedItHoldsNothing) {
  EXPECT_FALSE(holds(0));
  hold_.put(0, 1, 10);
  positions_[0].put(1, 20);
  EXPECT_TRUE(holds(0));
  hold_.clear();
  EXPECT_FALSE(holds(1));
}

}  // namespace
}  // namespace tandem

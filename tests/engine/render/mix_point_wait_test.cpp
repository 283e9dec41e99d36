#include "engine/render/mix_point_wait.h"

#include <gtest/gtest.h>

namespace tandem {
namespace {

constexpr std::int64_t kPatience = 30;

class MixPointWaitTest : public testing::Test {
 protected:
  bool must_wait(std::int64_t now) { return wait_.must_wait({&positions_[0], &positions_[1]}, now, kPatience); }

  std::array<DeckPosition, 2> positions_;
  MixPointWait wait_;
};

TEST_F(MixPointWaitTest, HoldsFromTheFrameOnAndNotForEver) {
  wait_.put(1, 7, 1000);
  positions_[1].put(7, 999);
  EXPECT_FALSE(must_wait(100));
  positions_[1].put(7, 1000);
  EXPECT_TRUE(must_wait(110));
  EXPECT_TRUE(must_wait(139));
  EXPECT_FALSE(must_wait(140));
  EXPECT_FALSE(must_wait(1000));
}

TEST_F(MixPointWaitTest, TheSameMomentGivenAgainIsNotWaitedForAgain) {
  wait_.put(0, 1, 10);
  positions_[0].put(1, 10);
  EXPECT_TRUE(must_wait(0));
  wait_.put(0, 1, 10);
  EXPECT_FALSE(must_wait(30));
  wait_.put(0, 1, 11);
  positions_[0].put(1, 11);
  EXPECT_TRUE(must_wait(40)) << "another one is";
}

TEST_F(MixPointWaitTest, AnotherSongOrAnotherDeckIsNotHeld) {
  wait_.put(0, 3, 10);
  positions_[0].put(2, 500);
  positions_[1].put(3, 500);
  EXPECT_FALSE(must_wait(0));
}

TEST_F(MixPointWaitTest, ClearedItHoldsNothing) {
  EXPECT_FALSE(must_wait(0));
  wait_.put(0, 1, 10);
  positions_[0].put(1, 20);
  EXPECT_TRUE(must_wait(0));
  wait_.clear();
  EXPECT_FALSE(must_wait(1));
}

}  // namespace
}  // namespace tandem

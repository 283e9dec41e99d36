#include "displays/spectrum/roll_recorder.h"

#include <gtest/gtest.h>

namespace tandem {
namespace {

using Heights = BothSides<std::vector<float>>;

struct Roll {
  Roll() { history.prepare(cells, 4, 2); }
  bool move(float left, float right, double seconds) {
    return history.move(cells, Heights{std::vector{left, 0.0F}, std::vector{0.0F, right}}, seconds);
  }
  RollCells cells;
  RollRecorder history;
};

TEST(RollRecorder, TimeRunsToTheLeft) {
  Roll roll;
  for (int i = 1; i <= 5; ++i) EXPECT_TRUE(roll.move(0.1F * static_cast<float>(i), 0.5F, RollRecorder::kStep));
  for (std::size_t age = 0; age < 4; ++age) {
    EXPECT_FLOAT_EQ(roll.cells.step(0, age)[0], 0.5F - 0.1F * static_cast<float>(age));
    EXPECT_EQ(roll.cells.step(0, age)[1], 0.0F);
    EXPECT_EQ(roll.cells.step(1, age)[1], 0.5F);
  }
}

TEST(RollRecorder, AStepKeepsTheGreatestOfItsTime) {
  Roll roll;
  EXPECT_FALSE(roll.move(0.8F, 0.1F, 0.6 * RollRecorder::kStep));
  EXPECT_TRUE(roll.move(0.2F, 0.4F, 0.6 * RollRecorder::kStep));
  EXPECT_EQ(roll.cells.step(0, 0)[0], 0.8F);
  EXPECT_EQ(roll.cells.step(1, 0)[1], 0.4F);
  EXPECT_EQ(roll.cells.step(0, 1)[0], 0.0F);
}

TEST(RollRecorder, MovesAsFastAtAnyRate) {
  for (const double rate : {30.0, 60.0, 75.0, 144.0}) {
    RollCells cells;
    RollRecorder history;
    history.prepare(cells, 100, 1);
    const Heights sound{std::vector{1.0F}, std::vector{1.0F}};
    for (int i = 0; i < static_cast<int>(rate) * 2; ++i) history.move(cells, sound, 1.0 / rate);
    std::size_t lit = 0;
    while (lit < 100 && cells.step(0, lit)[0] > 0.0F) ++lit;
    EXPECT_NEAR(static_cast<double>(lit), 30.0, 1.0) << rate;
  }
}

TEST(RollRecorder, ALatePictureLeavesNoGap) {
  Roll roll;
  EXPECT_TRUE(roll.move(0.7F, 0.7F, 2.5 * RollRecorder::kStep));
  EXPECT_EQ(roll.cells.step(0, 0)[0], 0.7F);
  EXPECT_EQ(roll.cells.step(0, 1)[0], 0.7F);
  EXPECT_EQ(roll.cells.step(0, 2)[0], 0.0F);
  EXPECT_TRUE(roll.move(0.3F, 0.3F, 3600.0));
  EXPECT_EQ(roll.cells.step(0, 3)[0], 0.3F);
}

TEST(RollRecorder, SilenceRunsOutAndThenNothingMoves) {
  Roll roll;
  roll.move(0.7F, 0.0F, RollRecorder::kStep);
  EXPECT_FALSE(roll.history.empty(roll.cells));
  for (int i = 0; i < 4; ++i) EXPECT_TRUE(roll.move(0.0F, 0.0F, RollRecorder::kStep)) << i;
  EXPECT_TRUE(roll.history.empty(roll.cells));
  EXPECT_FALSE(roll.move(0.0F, 0.0F, RollRecorder::kStep));
}

}  // namespace
}  // namespace tandem

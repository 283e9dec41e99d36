#include "displays/spectrum/peak_marks.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <initializer_list>

namespace tandem {
namespace {

class Marks {
 public:
  Marks(std::size_t count, int delay, int speed) {
    marks_.prepare(1, count);
    marks_.put_times(delay, speed);
  }
  // Pictures with the bar at `height` for a time.
  void bar(float height, double seconds, double picture = 0.01) {
    const auto pictures = std::max(1L, std::lround(seconds / picture));
    for (long i = 0; i < pictures; ++i) marks_.move(std::array{height}, seconds / static_cast<double>(pictures));
  }
  // The bar at one height after the other.
  void bars(std::initializer_list<float> heights, double seconds_each) {
    for (const float height : heights) bar(height, seconds_each);
  }
  float operator[](std::size_t age) const { return marks_.heights()[age]; }
  const PeakMarks& marks() const { return marks_; }

 private:
  PeakMarks marks_;
};

TEST(PeakMarks, HoldsAndFallsToThePercent) {
  for (const int delay : {0, 1, 18, 50})
    for (const int speed : {1, 20, 50})
      for (const double picture : {1.0 / 30.0, 1.0 / 60.0, 1.0 / 144.0}) {
        Marks marks(1, delay, speed);
        marks.bar(0.9F, 0.1);
        for (int i = 1; i <= 60; ++i) {
          marks.bar(0.0F, picture, picture);
          const double expected = 0.9 - std::max(0.0, i * picture - 0.02 * delay) * 0.03 * speed;
          ASSERT_NEAR(marks[0], std::max(0.0, expected), 0.001) << delay << " " << speed << " " << i;
        }
      }
}

TEST(PeakMarks, FallsOntoTheBar) {
  Marks marks(1, 0, 20);
  marks.bar(0.9F, 0.1);
  marks.bar(0.4F, 5.0);
  EXPECT_EQ(marks[0], 0.4F);
  marks.bar(0.5F, 0.01);
  EXPECT_EQ(marks[0], 0.5F);
}

TEST(PeakMarks, StaysForEverWithoutSpeed) {
  Marks marks(1, 0, 0);
  marks.bar(0.7F, 0.1);
  marks.bar(0.0F, 1000.0, 1.0);
  EXPECT_EQ(marks[0], 0.7F);
  EXPECT_TRUE(marks.marks().settled());
}

TEST(PeakMarks, EachNewAttackAgesTheFormerMarks) {
  Marks marks(3, 50, 1);
  marks.bars({0.5F, 0.2F}, 0.1);
  EXPECT_EQ(marks[1], 0.0F);
  marks.bars({0.7F, 0.2F, 0.9F}, 0.1);
  EXPECT_FLOAT_EQ(marks[0], 0.9F);
  EXPECT_FLOAT_EQ(marks[1], 0.7F);
  EXPECT_FLOAT_EQ(marks[2], 0.5F);
  marks.bars({0.2F, 1.0F}, 0.1);
  EXPECT_FLOAT_EQ(marks[2], 0.7F) << "the oldest goes";
}

TEST(PeakMarks, OneRiseIsOneMark) {
  Marks marks(2, 10, 10);
  for (int i = 1; i <= 10; ++i) marks.bar(0.1F * static_cast<float>(i), 0.016, 0.016);
  EXPECT_FLOAT_EQ(marks[0], 1.0F);
  EXPECT_EQ(marks[1], 0.0F);
}

TEST(PeakMarks, ALowerAttackLeavesTheMarksAlone) {
  Marks marks(2, 50, 1);
  marks.bars({0.8F, 0.2F, 0.6F}, 0.1);
  EXPECT_FLOAT_EQ(marks[0], 0.8F);
  EXPECT_EQ(marks[1], 0.0F);
}

TEST(PeakMarks, OlderMarksHoldAndFallOnTheirOwn) {
  Marks marks(2, 10, 50);
  marks.bars({0.4F, 0.0F, 0.9F}, 0.1);
  // 0.2 s after the bar left the first mark its hold is over.
  marks.bar(0.0F, 0.1);
  EXPECT_NEAR(marks[0], 0.9, 0.001);
  EXPECT_NEAR(marks[1], 0.4 - 0.1 * 1.5, 0.001);
  EXPECT_FALSE(marks.marks().settled());
  marks.bar(0.0F, 2.0);
  EXPECT_EQ(marks[0], 0.0F);
  EXPECT_EQ(marks[1], 0.0F);
  EXPECT_TRUE(marks.marks().settled());
}

TEST(PeakMarks, AreNotThereWhereTheirNumberIsNone) {
  Marks marks(0, 10, 10);
  marks.bar(0.5F, 0.1);
  EXPECT_TRUE(marks.marks().heights().empty());
}

}  // namespace
}  // namespace tandem

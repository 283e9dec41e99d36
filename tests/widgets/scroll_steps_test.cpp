#include "widgets/items/scroll_steps.h"

#include <gtest/gtest.h>

#include <array>
#include <set>

namespace tandem::test {
namespace {

constexpr double kRest = 0.8;
constexpr double kColumnsASecond = 30;
constexpr int kColumns = 120;

struct Run {
  std::set<int> gaps;   // pictures from step to step
  std::set<int> steps;  // columns at once
  int milliseconds = 0;
};

// The pictures' times are whole milliseconds; the first one comes `phase` of them after the caption.
Run run(int phase, const std::array<int, 3>& periods) {
  ScrollSteps scroll(kRest, kColumnsASecond);
  scroll.advance(phase / 1000.0, 1);
  Run result;
  int gap = 0;
  int columns = 0;
  for (std::size_t i = 0; columns < kColumns && i < 10000; ++i) {
    const int period = periods[i % periods.size()];
    const int moved = scroll.advance(period / 1000.0, 1);
    result.milliseconds += columns > 0 ? period : 0;
    ++gap;
    if (moved == 0) continue;
    if (columns > 0) result.gaps.insert(gap);
    result.steps.insert(moved);
    columns += moved;
    gap = 0;
  }
  return result;
}

void expect_even(const std::array<int, 3>& periods, int pictures) {
  for (int phase = 0; phase <= 34; ++phase) {
    const Run even = run(phase, periods);
    EXPECT_EQ(even.gaps, std::set{pictures}) << phase;
    EXPECT_EQ(even.steps, std::set{1}) << phase;
    EXPECT_NEAR(even.milliseconds, (kColumns - 1) * 1000 / kColumnsASecond, 5) << phase;
  }
}

TEST(ScrollSteps, AreTwoPicturesApartAt60InEveryPhase) {
  for (const auto& periods : {std::array{16, 17, 17}, {17, 16, 17}, {17, 17, 16}}) expect_even(periods, 2);
}

TEST(ScrollSteps, AreOnePictureApartAt30InEveryPhase) {
  for (const auto& periods : {std::array{33, 33, 34}, {33, 34, 33}, {34, 33, 33}}) expect_even(periods, 1);
}

TEST(ScrollSteps, KeepTheirSpeedAtOtherRates) {
  for (const int period : {7, 10, 20, 25, 40, 70, 100})
    EXPECT_NEAR(run(3, {period, period, period}).milliseconds, kColumns * 1000 / kColumnsASecond, 200) << period;
}

TEST(ScrollSteps, ALatePictureCatchesUp) {
  ScrollSteps scroll(0, kColumnsASecond);
  EXPECT_EQ(scroll.advance(1.01, 1), 30);
  EXPECT_EQ(scroll.advance(1.01, 6), 30);
}

}  // namespace
}  // namespace tandem::test

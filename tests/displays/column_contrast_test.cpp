#include "displays/spectrum/column_contrast.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace tandem {
namespace {

// What a column shows that stands at `middle` and swings by `swing` twice a second, over the last of its seconds.
struct Shown {
  float least = 10.0F;
  float greatest = -10.0F;
  float move() const { return (greatest - least) / 2.0F; }
};

Shown shown(ColumnContrast& contrast, float middle, float swing, int seconds, int rate = 60) {
  Shown result;
  for (int i = 0; i < seconds * rate; ++i) {
    std::vector<float> heights{middle + (i * 4 / rate % 2 == 0 ? swing : -swing)};
    contrast.enlarge(heights, 1.0 / rate);
    if (i < (seconds - 1) * rate) continue;
    result.least = std::min(result.least, heights[0]);
    result.greatest = std::max(result.greatest, heights[0]);
  }
  return result;
}

ColumnContrast of_one_column() {
  ColumnContrast contrast;
  contrast.prepare(1);
  return contrast;
}

void expect_as_it_is(float middle, float swing) {
  ColumnContrast contrast = of_one_column();
  const Shown column = shown(contrast, middle, swing, 30);
  EXPECT_NEAR(column.least, middle - swing, 1e-4F);
  EXPECT_NEAR(column.greatest, middle + swing, 1e-4F);
}

TEST(ColumnContrast, ASteadyToneStandsAtItsOwnHeight) { expect_as_it_is(0.6F, 0.0F); }

TEST(ColumnContrast, WhatHardlyMovesIsDrawnMovingThreeTimesAsMuch) {
  ColumnContrast contrast = of_one_column();
  EXPECT_NEAR(shown(contrast, 0.5F, 0.03F, 30).move(), 0.09F, 0.01F);
}

TEST(ColumnContrast, WhatMovesALittleIsBroughtToOneMeasure) {
  for (const float swing : {0.06F, 0.08F, 0.12F}) {
    ColumnContrast contrast = of_one_column();
    EXPECT_NEAR(shown(contrast, 0.5F, swing, 30).move(), 0.15F, 0.02F) << swing;
  }
}

TEST(ColumnContrast, WhatMovesWellStaysAsItIs) { expect_as_it_is(0.5F, 0.3F); }

TEST(ColumnContrast, DoesNotDependOnTheRateOfPictures) {
  ColumnContrast slow = of_one_column();
  ColumnContrast fast = of_one_column();
  EXPECT_NEAR(shown(slow, 0.5F, 0.03F, 20, 32).move(), shown(fast, 0.5F, 0.03F, 20, 128).move(), 0.01F);
}

TEST(ColumnContrast, ASoundAfterSilenceBeginsAtItsOwnHeight) {
  ColumnContrast contrast = of_one_column();
  shown(contrast, 0.0F, 0.0F, 10);
  EXPECT_NEAR(shown(contrast, 0.7F, 0.0F, 1).greatest, 0.7F, 1e-4F);
}

TEST(ColumnContrast, SilenceLiesAtTheBottomAtOnce) {
  ColumnContrast contrast = of_one_column();
  shown(contrast, 0.5F, 0.03F, 10);
  std::vector<float> heights{0.0F};
  contrast.enlarge(heights, 1.0 / 60.0);
  EXPECT_EQ(heights[0], 0.0F);
}

TEST(ColumnContrast, EveryColumnIsMeasuredByItself) {
  ColumnContrast contrast;
  contrast.prepare(2);
  std::vector<float> heights;
  for (int i = 0; i < 1200; ++i) {
    const float sign = i / 15 % 2 == 0 ? 1.0F : -1.0F;
    heights = {0.5F + sign * 0.02F, 0.5F + sign * 0.3F};
    contrast.enlarge(heights, 1.0 / 60.0);
  }
  EXPECT_NEAR(std::abs(heights[0] - 0.5F), 0.06F, 0.01F);
  EXPECT_NEAR(std::abs(heights[1] - 0.5F), 0.3F, 0.01F);
}

}  // namespace
}  // namespace tandem

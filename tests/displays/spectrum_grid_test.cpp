#include "displays/spectrum/spectrum_grid.h"

#include <gtest/gtest.h>

#include <cmath>

#include "displays/spectrum/frequency_axis.h"

namespace tandem {
namespace {

TEST(SpectrumGrid, HasThirtyThreeColumnsOfFivePixelsAndTwentyEightRowsOfThree) {
  const SpectrumGrid grid = spectrum_grid(64, 1.0);
  EXPECT_EQ(grid.columns, 33);
  EXPECT_EQ(grid.pitch, 5);
  EXPECT_EQ(grid.column_width(), 4);
  EXPECT_EQ(grid.rows, 28);
  EXPECT_EQ(grid.row_pitch, 3);
  EXPECT_EQ(grid.strip_top, 87);
  EXPECT_EQ(grid.baseline, 86);
  EXPECT_EQ(grid.top(), 2);
}

TEST(SpectrumGrid, HasOnePitchAndNoMarginBeyondTheMiddleAtEveryScale) {
  struct Expected {
    double scale;
    int columns, pitch, rows, row_pitch;
  };
  for (const Expected& e : {Expected{1.0, 33, 5, 28, 3},
                            {1.25, 34, 6, 35, 3},
                            {1.5, 35, 7, 31, 4},
                            {2.0, 33, 10, 28, 6},
                            {3.0, 33, 15, 28, 9}}) {
    const SpectrumGrid grid = spectrum_grid(64, e.scale);
    EXPECT_EQ(grid.columns, e.columns) << e.scale;
    EXPECT_EQ(grid.pitch, e.pitch) << e.scale;
    EXPECT_EQ(grid.rows, e.rows) << e.scale;
    EXPECT_EQ(grid.row_pitch, e.row_pitch) << e.scale;
    EXPECT_EQ(grid.left[0], std::lround(2 * e.scale));
    EXPECT_EQ(grid.left[1] + grid.half_width(), std::lround(337 * e.scale) - std::lround(2 * e.scale));
  }
}

TEST(SpectrumGrid, EveryLengthStaysInTheAreaAndFillsIt) {
  for (const double scale : {1.0, 1.1, 1.25, 1.5, 1.75, 2.0, 3.0})
    for (int length = 4; length <= 4096; length *= 2) {
      const SpectrumGrid grid = spectrum_grid(length, scale);
      EXPECT_GE(grid.pitch, 2);
      EXPECT_GT(grid.column_width(), 0);
      EXPECT_GE(grid.left[1] - grid.left[0] - grid.half_width(), grid.gap) << length << " " << scale;
      EXPECT_GT(grid.half_width() + grid.pitch, 163 * scale) << "no room for another column";
    }
  EXPECT_EQ(spectrum_grid(8, 1.0).columns, 4);
  EXPECT_EQ(spectrum_grid(128, 1.0).columns, 82);
  EXPECT_EQ(spectrum_grid(4096, 1.0).columns, 82);
}

TEST(FrequencyAxis, AnOctaveIsAsWideEverywhere) {
  const FrequencyAxis axis = shown_axis(1, 1000);
  EXPECT_NEAR(axis.low_hz, 40.0, 1e-9);
  EXPECT_NEAR(axis.high_hz, 20000.0, 1e-9);
  EXPECT_NEAR(axis.position(100) - axis.position(50), axis.position(10000) - axis.position(5000), 1e-12);
  EXPECT_NEAR(axis.hz(axis.position(440)), 440, 1e-9);
}

TEST(FrequencyAxis, AScaleShowsItsPartAboutTheReference) {
  const double octaves = std::log2(500.0);
  for (const int scale : {2, 4, 16}) {
    const FrequencyAxis axis = shown_axis(scale, 1000);
    EXPECT_NEAR(std::log2(axis.high_hz / axis.low_hz), octaves / scale, 1e-9);
    EXPECT_NEAR(axis.position(1000), 0.5, 1e-9);
  }
  EXPECT_NEAR(shown_axis(4, 50).low_hz, 40.0, 1e-9) << "kept within the whole";
  EXPECT_NEAR(shown_axis(16, 22050).high_hz, 20000.0, 1e-6);
}

}  // namespace
}  // namespace tandem

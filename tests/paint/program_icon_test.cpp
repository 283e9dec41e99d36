#include "paint/panel/program_icon.h"

#include <gtest/gtest.h>

#include "paint/strokes/palette.h"

namespace tandem {
namespace {

TEST(ProgramIcon, ShowsOneSongFallingAndTheNextRising) {
  const QImage icon = program_icon(128);
  EXPECT_EQ(icon.size(), QSize(128, 128));
  const auto spot = [&](int column, int row) {
    return icon.pixel(static_cast<int>(2 * (12.5 + 6.6 * column + 2.8)),
                      static_cast<int>(2 * (46.5 - 5.6 * row + 2.2)));
  };
  EXPECT_EQ(spot(0, 6), palette::kLime);
  EXPECT_EQ(spot(5, 6), palette::kOrange);
  EXPECT_EQ(spot(2, 0), palette::kYellow) << "where both are heard";
}

TEST(ProgramIcon, HasCleanBarsWhereItIsSmall) {
  for (const int pixels : {16, 22, 24, 32}) {
    const QImage icon = program_icon(pixels);
    const int bar = (pixels + 4) / 8;
    const int left = (pixels - 6 * bar) / 2;
    for (int x = 0; x < bar; ++x) {
      EXPECT_EQ(icon.pixel(left + x, left), palette::kLime) << pixels;
      EXPECT_EQ(icon.pixel(left + 5 * bar + x, left), palette::kOrange) << pixels;
      EXPECT_EQ(icon.pixel(left + 2 * bar + x, pixels - left - 1), palette::kYellow) << pixels;
    }
  }
}

TEST(ProgramIcon, IsTransparentOutsideThePlate) {
  for (const int pixels : {16, 32, 48, 256}) {
    const QImage icon = program_icon(pixels);
    EXPECT_EQ(icon.width(), pixels);
    EXPECT_LT(qAlpha(icon.pixel(0, 0)), 60);
    EXPECT_EQ(qAlpha(icon.pixel(pixels / 2, pixels / 2)), 255);
  }
}

}  // namespace
}  // namespace tandem

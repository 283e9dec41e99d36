// What the board's lamps and its switch "Type" do to the picture of the spectrum.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "widgets/board_picture.h"

namespace tandem::test {
namespace {

constexpr double kBin = kHeardRate / 64;  // at the design FFT length

// Two tones in the middle of columns 8 and 20, 6 and 26 dB below full scale.
const std::vector<Tone> kTones = {{8 * kBin, -6}, {20 * kBin, -26}};

int height(double share) { return static_cast<int>(std::lround(share * kSpectrumRows)); }

class BoardLamps : public testing::Test {
 protected:
  BoardRig rig;
};

TEST_F(BoardLamps, TheDesignShowsBarsOfSpots) {
  const BoardPicture picture = rig.picture_of(kTones);
  EXPECT_EQ(picture.columns(), 32);
  EXPECT_EQ(picture.highest_column(), 8);
  EXPECT_NEAR(picture.rows(8), height((60 - 6 + 3) / 60.), 1) << "gain 3 dB, 60 dB high";
  EXPECT_NEAR(picture.rows(20), height((60 - 26 + 3) / 60.), 1);
  EXPECT_NEAR(picture.rows(8, 1), height((60 - 12 + 3) / 60.), 1) << "the right side's own level";
  EXPECT_EQ(picture.count(is_white), 0);
  const int x = picture.grid().column_x(0, 8) + 1;
  EXPECT_FALSE(is_lit(picture.image().pixel(x, picture.grid().row_top[2] + picture.grid().spot_height)))
      << "a gap between two spots";
}

TEST_F(BoardLamps, GridIsDottedLines) {
  EXPECT_EQ(rig.picture_of(kTones).count(is_silver), 0);
  rig.controls().MMLEDX1.click.raise();
  const BoardPicture picture = rig.picture_of(kTones);
  EXPECT_GT(picture.count(is_silver), 300);
  const int y = picture.grid().baseline - picture.grid().height + picture.grid().height / 4;
  int dots = 0;
  for (int x = picture.grid().left[0]; x < picture.grid().left[0] + 155; ++x) {
    dots += is_silver(picture.image().pixel(x, y)) ? 1 : 0;
  }
  EXPECT_NEAR(dots, 155 / 4, 4) << "one on, three off";
  rig.controls().MMLEDX1.click.raise();
  EXPECT_EQ(rig.picture_of(kTones).count(is_silver), 0);
}

TEST_F(BoardLamps, LedOffMakesSolidBars) {
  rig.controls().MMLEDX2.click.raise();
  const BoardPicture picture = rig.picture_of(kTones);
  const SpectrumGrid& grid = picture.grid();
  const int x = grid.column_x(0, 8) + 1;
  const int lines = static_cast<int>(std::lround(57 / 60. * grid.height));
  for (int y = grid.baseline - lines + 2; y < grid.baseline; ++y) {
    EXPECT_TRUE(is_lit(picture.image().pixel(x, y))) << y;
  }
  EXPECT_EQ(picture.count(is_inactive), 0) << "there are no spots";
}

TEST_F(BoardLamps, InactiveShowsUnlitSpots) {
  EXPECT_GT(rig.picture_of(kTones).count(is_inactive), 3000);
  rig.controls().MMLEDX3.click.raise();
  const BoardPicture picture = rig.picture_of(kTones);
  EXPECT_EQ(picture.count(is_inactive), 0);
  EXPECT_GT(picture.rows(8), 20) << "the lit ones stay";
}

TEST_F(BoardLamps, LogLinChangesTheScaleOfHeights) {
  rig.controls().MMLEDX4.click.raise();
  const BoardPicture picture = rig.picture_of(kTones);
  const double gain = std::pow(10, 3 / 20.);
  EXPECT_NEAR(picture.rows(8), kSpectrumRows * std::pow(10, -6 / 20.) * gain, 1);
  EXPECT_NEAR(picture.rows(20), kSpectrumRows * std::pow(10, -26 / 20.) * gain, 1) << "almost nothing, when linear";
}

TEST_F(BoardLamps, PickShowsPeakMarks) {
  rig.controls().MMLEDX5.click.raise();
  rig.picture_of(kTones);
  rig.hear_silence(.3);  // 18 x 20 ms they stand
  const BoardPicture picture = rig.picture();
  EXPECT_LT(picture.rows(8), 22) << "the bar has fallen";
  const auto marks = picture.rows_where(8, is_white);
  ASSERT_EQ(marks.size(), 1U);
  EXPECT_NEAR(marks[0], height(57 / 60.), 1) << "the mark has not";
  rig.controls().MMLEDX5.click.raise();
  rig.hear(kTones, .1);
  EXPECT_EQ(rig.picture().count(is_white), 0);
}

TEST_F(BoardLamps, DefaultBringsTheDesignBack) {
  const QImage before = rig.picture_of(kTones).image();
  for (Lamp* lamp : {&rig.controls().MMLEDX1, &rig.controls().MMLEDX2, &rig.controls().MMLEDX4}) lamp->click.raise();
  rig.controls().MMSwitch1.move(0);
  rig.controls().MMSwitch4.move(3);
  EXPECT_NE(rig.picture_of(kTones).image(), before);
  rig.controls().MMLEDX6.click.raise();
  rig.hear_silence(3);
  rig.restore();
  EXPECT_EQ(rig.controls().MMSwitch1.value(), 3);
  const BoardPicture picture = rig.picture_of(kTones);
  EXPECT_EQ(picture.rows(8), height(57 / 60.));
  EXPECT_EQ(picture.count(is_silver), 0);
}

int lit_in_column(const BoardPicture& picture, int column) {
  int lines = 0;
  const SpectrumGrid& grid = picture.grid();
  for (int y = grid.baseline - grid.height; y < grid.baseline; ++y) {
    lines += is_lit(picture.image().pixel(grid.column_x(0, column) + (grid.width - 1) / 2, y)) ? 1 : 0;
  }
  return lines;
}

TEST_F(BoardLamps, EveryTypeDrawsInItsOwnWay) {
  std::vector<QImage> pictures;
  std::array<int, 6> lit{};  // lines of the column of the loud tone
  for (int type = 0; type < 6; ++type) {
    rig.controls().MMSwitch1.move(type);
    const BoardPicture picture = rig.picture_of(kTones);
    lit[static_cast<std::size_t>(type)] = lit_in_column(picture, 8);
    for (const QImage& other : pictures) EXPECT_NE(other, picture.image()) << type;
    pictures.push_back(picture.image());
  }
  EXPECT_EQ(lit[0], 2) << "a point";
  EXPECT_LE(lit[1], 8) << "a line";
  EXPECT_GE(lit[2], 76) << "a stem";
  EXPECT_EQ(lit[3], 2 * 27) << "a bar of spots";
  EXPECT_EQ(lit[4], 2) << "its top spot";
}

TEST_F(BoardLamps, TheRollRunsToTheLeft) {
  rig.controls().MMSwitch1.move(5);
  rig.hear_silence(3);
  rig.hear(kTones, .5);
  const auto bright_from = [&] {
    const QImage image = rig.picture().image();
    for (int x = 4; x < 164; ++x) {
      for (int y = 2; y < 86; ++y) {
        if (is_lit(image.pixel(x, y))) return x;
      }
    }
    return 1000;
  };
  const int after_half_a_second = bright_from();
  EXPECT_GT(after_half_a_second, 60);
  rig.hear(kTones, .5);
  const int after_a_second = bright_from();
  EXPECT_NEAR(after_half_a_second - after_a_second, 30, 4) << "30 steps of two pixels a second";
  rig.hear(kTones, 2);
  EXPECT_LE(bright_from(), 6);
}

}  // namespace
}  // namespace tandem::test

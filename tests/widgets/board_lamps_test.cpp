// What the board's lamps and its switch "Type" do to the picture of the spectrum.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "displays/spectrum/spectrum_settings.h"
#include "widgets/board_picture.h"

namespace tandem::test {
namespace {

// Two tones, 6 and 26 dB below full scale.
const std::vector<Tone> kTones = {{300, -6}, {3000, -26}};

int loud(const BoardPicture& picture) { return picture.rows(picture.column_of(300)); }
int quiet(const BoardPicture& picture) { return picture.rows(picture.column_of(3000)); }

class BoardLamps : public testing::Test {
 protected:
  BoardRig rig;
};

TEST_F(BoardLamps, TheDesignShowsBarsOfSpots) {
  const BoardPicture picture = rig.picture_of(kTones);
  EXPECT_EQ(picture.columns(), 33);
  EXPECT_EQ(picture.highest_column(), picture.column_of(300));
  // With the gain of 3 dB an octave they stand at -11.2 and -21.2 dB, the right side 6 dB lower; 34.5 dB are the
  // height.
  EXPECT_NEAR(loud(picture), 26, 1);
  EXPECT_NEAR(quiet(picture), 20, 1);
  EXPECT_NEAR(picture.rows(picture.column_of(300), 1), 23, 1) << "the right side's own level";
  EXPECT_EQ(picture.count(is_white), 0);
  const int x = picture.grid().column_x(0, picture.column_of(300)) + 1;
  EXPECT_FALSE(is_lit(picture.image().pixel(x, picture.grid().row_top(2) + 2))) << "a gap between two spots";
}

TEST_F(BoardLamps, GridIsDottedLines) {
  EXPECT_EQ(rig.picture_of(kTones).count(is_silver), 0);
  rig.controls().MMLEDX1.click.raise();
  const BoardPicture picture = rig.picture_of(kTones);
  EXPECT_GT(picture.count(is_silver), 300);
  const int y = picture.grid().top() + picture.grid().height() / 4;
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
  const int x = grid.column_x(0, picture.column_of(300)) + 1;
  for (int y = grid.baseline - 70; y < grid.baseline; ++y) {
    EXPECT_GT(std::max(qRed(picture.image().pixel(x, y)), qGreen(picture.image().pixel(x, y))), 100) << y;
  }
}

TEST_F(BoardLamps, InactiveShowsUnlitSpots) {
  EXPECT_GT(rig.picture_of(kTones).count(is_inactive), 3000);
  rig.controls().MMLEDX3.click.raise();
  const BoardPicture picture = rig.picture_of(kTones);
  EXPECT_EQ(picture.count(is_inactive), 0);
  EXPECT_GT(loud(picture), 20) << "the lit ones stay";
}

TEST_F(BoardLamps, LogLinChangesTheScaleOfHeights) {
  const std::vector<Tone> apart = {{300, -6}, {3000, -55}};
  const int logarithmic = quiet(rig.picture_of(apart));
  EXPECT_LE(logarithmic, 1) << "below the logarithmic range";
  rig.controls().MMLEDX4.click.raise();
  EXPECT_GT(quiet(rig.picture_of(apart)), logarithmic) << "a root still shows it";
}

TEST_F(BoardLamps, PickShowsPeakMarks) {
  rig.controls().MMLEDX5.click.raise();
  const int top = loud(rig.picture_of(kTones));
  rig.hear_silence(.3);  // 18 x 20 ms they stand
  const BoardPicture picture = rig.picture();
  EXPECT_LT(loud(picture), top - 3) << "the bar has fallen";
  const auto marks = picture.rows_where(picture.column_of(300), is_white);
  ASSERT_EQ(marks.size(), 1U);
  EXPECT_NEAR(marks[0], top, 1) << "the mark has not";
  rig.controls().MMLEDX5.click.raise();
  rig.hear(kTones, .1);
  EXPECT_EQ(rig.picture().count(is_white), 0);
}

TEST_F(BoardLamps, DefaultBringsTheDesignBack) {
  const BoardPicture first = rig.picture_of(kTones);
  const QImage before = first.image();
  for (Lamp* lamp : {&rig.controls().MMLEDX1, &rig.controls().MMLEDX2, &rig.controls().MMLEDX4}) lamp->click.raise();
  rig.controls().MMSwitch1.move(0);
  rig.controls().MMSwitch4.move(3);
  EXPECT_NE(rig.picture_of(kTones).image(), before);
  rig.controls().MMLEDX6.click.raise();
  rig.hear_silence(3);
  rig.restore();
  EXPECT_EQ(rig.controls().MMSwitch1.value(), 3);
  const BoardPicture picture = rig.picture_of(kTones);
  EXPECT_NEAR(loud(picture), loud(first), 1);
  EXPECT_EQ(picture.count(is_silver), 0);
}

int lit_in_column(const BoardPicture& picture, int column) {
  int lines = 0;
  const SpectrumGrid& grid = picture.grid();
  for (int y = grid.top(); y < grid.baseline; ++y) {
    lines += is_lit(picture.image().pixel(grid.column_x(0, column) + (grid.column_width() - 1) / 2, y)) ? 1 : 0;
  }
  return lines;
}

TEST_F(BoardLamps, EveryTypeDrawsInItsOwnWay) {
  std::vector<QImage> pictures;
  std::array<int, 6> lit{};  // lines of the column of the loud tone
  for (int type = 0; type < kAnalyserKinds; ++type) {
    rig.controls().MMSwitch1.move(type);
    const BoardPicture picture = rig.picture_of(kTones);
    lit[static_cast<std::size_t>(type)] = lit_in_column(picture, picture.column_of(300));
    for (const QImage& other : pictures) EXPECT_NE(other, picture.image()) << type;
    pictures.push_back(picture.image());
  }
  EXPECT_EQ(lit[0], 2) << "a point";
  EXPECT_LE(lit[1], 8) << "a line";
  EXPECT_GE(lit[2], 30) << "a stem, dark at its foot";
  EXPECT_NEAR(lit[3], 2 * 26, 2) << "a bar of spots";
  EXPECT_EQ(lit[4], 2) << "its top spot";
}

TEST_F(BoardLamps, TheRollRunsToTheLeft) {
  rig.controls().MMSwitch1.move(5);
  rig.hear_silence(3);
  rig.hear(kTones, .5);
  const auto bright_from = [&] {
    const QImage image = rig.picture().image();
    for (int x = 2; x < 166; ++x) {
      for (int y = 2; y < 86; ++y) {
        if (is_lit(image.pixel(x, y))) return x;
      }
    }
    return 1000;
  };
  const int after_half_a_second = bright_from();
  EXPECT_GT(after_half_a_second, 120);
  rig.hear(kTones, .5);
  const int after_a_second = bright_from();
  EXPECT_NEAR(after_half_a_second - after_a_second, 15, 4) << "15 steps of two pixels a second";
  rig.hear(kTones, 5);
  EXPECT_LE(bright_from(), 6);
}

}  // namespace
}  // namespace tandem::test

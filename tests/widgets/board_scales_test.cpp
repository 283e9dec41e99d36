// What the board's switches and spinners do to the picture of the spectrum: window, decay, gain, lengths and scales.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "widgets/board_picture.h"

namespace tandem::test {
namespace {

std::vector<Tone> tone(double hz, double db) { return {{hz, db}}; }

class BoardScales : public testing::Test {
 protected:
  void push(Spinner& spinner, int steps) {
    for (int i = 0; i < std::abs(steps); ++i) steps > 0 ? spinner.user_up() : spinner.user_down();
  }
  BoardRig rig;
};

TEST_F(BoardScales, EveryWindowHasItsOwnSkirts) {
  std::array<int, 7> skirt{};
  std::vector<QImage> pictures;
  for (int window = 0; window < 7; ++window) {
    rig.controls().MMSwitch2.move(window);
    const BoardPicture picture = rig.picture_of(tone(310, 0));
    for (int column = picture.column_of(450); column < 30; ++column)
      skirt[static_cast<std::size_t>(window)] += picture.rows(column);
    for (const QImage& other : pictures) EXPECT_NE(other, picture.image()) << window;
    pictures.push_back(picture.image());
  }
  EXPECT_EQ(std::max_element(skirt.begin(), skirt.end()), skirt.begin()) << "a rectangle leaks most";
  EXPECT_GT(skirt[0], skirt[3] + 10) << "and Blackman's window much less";
}

TEST_F(BoardScales, GainTiltsTheSpectrumAboutTheReference) {
  int before = -100;
  for (int gain = 0; gain < 4; ++gain) {
    rig.controls().MMSwitch4.move(gain);
    const BoardPicture picture = rig.picture_of({{250, -30}, {4000, -30}});
    const int tilt = picture.rows(picture.column_of(4000)) - picture.rows(picture.column_of(250));
    EXPECT_GT(tilt, before + 3) << gain;
    before = tilt;
  }
}

TEST_F(BoardScales, FftLengthGivesFinerColumns) {
  const int design = rig.picture_of({{5000, -6}}).columns();
  EXPECT_EQ(design, 33);
  push(rig.controls().MMLEDSpin2, 2);  // 256
  EXPECT_EQ(rig.controls().MMLEDSpin2.value(), 256);
  const BoardPicture fine = rig.picture_of({{5000, -6}});
  EXPECT_EQ(fine.columns(), 82);
  EXPECT_NEAR(fine.highest_column(), fine.column_of(5000), 1);
  push(rig.controls().MMLEDSpin2, -4);  // 16
  const BoardPicture coarse = rig.picture_of({{5000, -6}});
  EXPECT_EQ(coarse.columns(), 8);
  EXPECT_EQ(coarse.highest_column(), coarse.column_of(5000));
  EXPECT_GT(coarse.grid().column_width(), 8 * fine.grid().column_width());
}

TEST_F(BoardScales, VerticalScaleChangesTheRange) {
  const auto rows = [&] {
    const BoardPicture picture = rig.picture_of(tone(1000, -35));
    return picture.rows(picture.column_of(1000));
  };
  const int design = rows();
  push(rig.controls().MMLEDSpin3, -2);  // 20: a wider range
  const int wider = rows();
  EXPECT_GT(wider, design + 1);
  push(rig.controls().MMLEDSpin3, 8);  // 100: a narrower one
  EXPECT_LT(rows(), design - 1);
}

// The bright mark on the scale strip, px from the left end of the strip to its middle.
int reference_mark(const BoardPicture& picture) {
  const int y = picture.grid().strip_top + 1;
  for (int x = 0; x < 164; ++x) {
    if (qRed(picture.image().pixel(picture.grid().left[0] + x, y)) > 150) return x + 1;
  }
  return -1;
}

TEST_F(BoardScales, HorizontalScaleLooksCloserAboutTheReference) {
  rig.controls().MMLEDSpin7.move(2000);
  const std::vector<Tone> sound = {{2400, -6}};
  const BoardPicture whole = rig.picture_of(sound);
  EXPECT_NEAR(whole.highest_column(), whole.column_of(2400), 1);
  EXPECT_NEAR(reference_mark(whole), FrequencyAxis{}.position(2000) * 165, 2);
  push(rig.controls().MMLEDSpin6, 2);  // 4
  const BoardPicture close = rig.picture_of(sound);
  EXPECT_NEAR(close.highest_column(), shown_axis(4, 2000).position(2400) * 33, 1);
  EXPECT_NEAR(reference_mark(close), 82, 2);
  rig.controls().MMLEDSpin7.move(2400);
  EXPECT_NEAR(rig.picture_of(sound).highest_column(), 16, 1) << "the reference is the middle";
}

TEST_F(BoardScales, ReferenceFrequencyIsMarked) {
  EXPECT_NEAR(reference_mark(rig.picture_of({})), FrequencyAxis{}.position(1000) * 165, 2);
  rig.controls().MMLEDSpin7.move(10000);
  EXPECT_NEAR(reference_mark(rig.picture_of({})), FrequencyAxis{}.position(10000) * 165, 2);
}

// Rows that a high bar and a lower one have fallen between 0.1 s and 0.3 s after the sound's end.
std::array<int, 2> fallen(BoardRig& rig) {
  rig.picture_of({{3000, -10}, {12000, -33}});
  rig.hear_silence(.1);
  const BoardPicture before = rig.picture();
  rig.hear_silence(.2);
  const BoardPicture after = rig.picture();
  const auto rows = [&](double hz) { return before.rows(before.column_of(hz)) - after.rows(after.column_of(hz)); };
  return {rows(3000), rows(12000)};
}

TEST_F(BoardScales, DecayKindsFallInTheirWays) {
  rig.controls().MMLEDSpin1.move(8);  // 96 % of the height a second
  rig.controls().MMSwitch3.move(3);
  const auto uniform = fallen(rig);
  EXPECT_NEAR(uniform[0], 28 * .96 * .2, 1.1);
  EXPECT_NEAR(uniform[1], uniform[0], 1.1) << "the same way down as the high one";
  rig.controls().MMSwitch3.move(2);
  const auto exponential = fallen(rig);
  EXPECT_LT(exponential[1], exponential[0]) << "in proportion to its height";
  rig.controls().MMSwitch3.move(1);
  EXPECT_NEAR(fallen(rig)[0], uniform[0], 1.1) << "as fast, by whole spots";
  rig.controls().MMSwitch3.move(0);
  rig.picture_of({{3000, -10}});
  rig.hear_silence(.1);
  const BoardPicture none = rig.picture();
  EXPECT_EQ(none.rows(none.column_of(3000)), 0) << "none: down at once";
}

TEST_F(BoardScales, VelocityIsTheSpeedOfTheFall) {
  rig.controls().MMSwitch3.move(3);
  for (const int speed : {2, 12}) {
    rig.controls().MMLEDSpin1.move(speed);
    EXPECT_NEAR(fallen(rig)[0], 28 * .12 * speed * .2, 1.1) << speed;
  }
}

class BoardMarks : public BoardScales {
 protected:
  BoardMarks() {
    rig.controls().MMLEDX5.click.raise();
    rig.controls().MMSwitch3.move(0);  // the bars are down at once, only marks remain
  }
  std::vector<int> marks() {
    const BoardPicture picture = rig.picture();
    return picture.rows_where(picture.column_of(3000), is_white);
  }
  int top() {
    const BoardPicture picture = rig.picture_of(tone(3000, -10));
    return picture.rows(picture.column_of(3000));
  }
};

TEST_F(BoardMarks, DelayIsHowLongAMarkStands) {
  rig.controls().MMLEDSpin8.move(20);  // 60 % a second
  for (const int delay : {5, 50}) {
    rig.controls().MMLEDSpin4.move(delay);
    const int from = top();
    rig.hear_silence(.6);
    ASSERT_EQ(marks().size(), 1U) << delay;
    const double fell = delay == 50 ? 0 : .6 - delay * .02;  // 50 of them are a second
    EXPECT_NEAR(marks()[0], from - 28 * .6 * fell, 2) << delay;
  }
}

TEST_F(BoardMarks, VelocityIsHowFastItFalls) {
  rig.controls().MMLEDSpin4.move(0);
  for (const int speed : {10, 25}) {
    rig.controls().MMLEDSpin8.move(speed);
    const int from = top();
    rig.hear_silence(.6);
    ASSERT_EQ(marks().size(), 1U) << speed;
    EXPECT_NEAR(marks()[0], from - 28 * .03 * speed * .56, 2) << speed;
  }
}

TEST_F(BoardMarks, AreAsManyAsPicksSays) {
  rig.controls().MMLEDSpin8.move(20);
  rig.controls().MMLEDSpin4.move(5);
  for (const int number : {0, 1, 3}) {
    rig.controls().MMLEDSpin5.move(number);
    rig.hear_silence(3);
    for (const double db : {-3., -3., -3.}) {
      rig.hear(tone(3000, db), .15);
      rig.hear_silence(.35);
    }
    EXPECT_EQ(marks().size(), static_cast<std::size_t>(number));
  }
}

}  // namespace
}  // namespace tandem::test

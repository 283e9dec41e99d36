// What the board's switches and spinners do to the picture of the spectrum: window, decay, gain, lengths and scales.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "widgets/board_picture.h"

namespace tandem::test {
namespace {

constexpr double kBin = kHeardRate / 64;  // at the design FFT length

std::vector<Tone> tone(double bin, double db) { return {{bin * kBin, db}}; }

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
    const BoardPicture picture = rig.picture_of(tone(8.5, 0));  // between two columns
    for (int column = 14; column < 32; ++column) skirt[static_cast<std::size_t>(window)] += picture.rows(column);
    for (const QImage& other : pictures) EXPECT_NE(other, picture.image()) << window;
    pictures.push_back(picture.image());
  }
  const auto least = std::min_element(skirt.begin(), skirt.end());
  EXPECT_EQ(std::max_element(skirt.begin(), skirt.end()), skirt.begin()) << "a rectangle leaks most";
  EXPECT_GT(skirt[0], *least + 100);
  EXPECT_LT(skirt[3], skirt[1]) << "Blackman's skirts lie below Hamming's";
}

TEST_F(BoardScales, GainLiftsEveryBarByThreeDecibels) {
  for (int gain = 0; gain < 4; ++gain) {
    rig.controls().MMSwitch4.move(gain);
    EXPECT_NEAR(rig.picture_of(tone(8, -30)).rows(8), kSpectrumRows * (30 + 3 * gain) / 60., .6) << gain;
  }
}

TEST_F(BoardScales, FftLengthGivesFinerColumns) {
  push(rig.controls().MMLEDSpin2, 2);  // 256
  EXPECT_EQ(rig.controls().MMLEDSpin2.value(), 256);
  const BoardPicture fine = rig.picture_of({{5000, -6}});
  EXPECT_EQ(fine.columns(), 80);
  EXPECT_NEAR(fine.highest_column(), 5000 / 22050. * 80, 1);
  push(rig.controls().MMLEDSpin2, -4);  // 16
  const BoardPicture coarse = rig.picture_of({{5000, -6}});
  EXPECT_EQ(coarse.columns(), 8);
  EXPECT_NEAR(coarse.highest_column(), 5000 / 22050. * 8, 1);
  EXPECT_GT(coarse.grid().width, 4 * fine.grid().width);
  push(rig.controls().MMLEDSpin2, 6);  // 1024
  EXPECT_NEAR(rig.picture_of({{5000, -6}}).highest_column(), 5000 / 22050. * 80, 1);
}

TEST_F(BoardScales, VerticalScaleChangesTheRange) {
  const int design = rig.picture_of(tone(8, -20)).rows(8);
  EXPECT_NEAR(design, kSpectrumRows * 43 / 60., .6);
  push(rig.controls().MMLEDSpin3, -2);  // 20: 120 dB
  EXPECT_NEAR(rig.picture_of(tone(8, -20)).rows(8), kSpectrumRows * 103 / 120., .6);
  push(rig.controls().MMLEDSpin3, 6);  // 80: 30 dB
  EXPECT_NEAR(rig.picture_of(tone(8, -20)).rows(8), kSpectrumRows * 13 / 30., .6);
}

// The white mark on the scale strip, px from the left end of the strip.
int reference_mark(const BoardPicture& picture) {
  const int y = picture.image().height() - 2;
  for (int x = 0; x < 160; ++x) {
    if (qRed(picture.image().pixel(picture.grid().left[0] + x, y)) > 200) return x;
  }
  return -1;
}

TEST_F(BoardScales, HorizontalScaleLooksCloserAboutTheReference) {
  rig.controls().MMLEDSpin7.move(8000);
  push(rig.controls().MMLEDSpin2, 4);  // 1024, so that every column has bins of its own
  const std::vector<Tone> sound = {{8500, -6}};
  const BoardPicture whole = rig.picture_of(sound);
  EXPECT_NEAR(whole.highest_column(), 8500 / 22050. * 80, 1);
  EXPECT_NEAR(reference_mark(whole), 8000 / 22050. * 160, 2);
  push(rig.controls().MMLEDSpin6, 2);  // 4: 5512 Hz about 8000
  const BoardPicture close = rig.picture_of(sound);
  EXPECT_NEAR(close.highest_column(), (.5 + 500 / 5512.5) * 80, 1);
  EXPECT_NEAR(reference_mark(close), 80, 2);
  rig.controls().MMLEDSpin7.move(8500);
  const BoardPicture moved = rig.picture_of(sound);
  EXPECT_NEAR(moved.highest_column(), 40, 1) << "the reference is the middle";
}

TEST_F(BoardScales, ReferenceFrequencyIsMarked) {
  EXPECT_NEAR(reference_mark(rig.picture_of({})), 1000 / 22050. * 160, 2);
  rig.controls().MMLEDSpin7.move(11025);
  EXPECT_NEAR(reference_mark(rig.picture_of({})), 80, 2);
}

// Rows of a full bar and of a half one, 0.25 s after the sound's end.
std::array<int, 2> fallen(BoardRig& rig) {
  rig.picture_of({{8 * kBin, -3}, {20 * kBin, -33}});
  rig.hear_silence(.25);
  const BoardPicture picture = rig.picture();
  return {picture.rows(8), picture.rows(20)};
}

TEST_F(BoardScales, DecayKindsFallInTheirWays) {
  rig.controls().MMLEDSpin1.move(4);  // 48 % of the height a second
  rig.controls().MMSwitch3.move(0);
  EXPECT_EQ(fallen(rig), (std::array{0, 0})) << "none: down at once";
  // 50 ms pass until the analyser takes the silence for one; 0.2 s of fall remain.
  rig.controls().MMSwitch3.move(3);
  const auto uniform = fallen(rig);
  EXPECT_NEAR(uniform[0], kSpectrumRows * (1 - .48 * .22), 1.1);
  EXPECT_NEAR(uniform[1], kSpectrumRows * (.5 - .48 * .22), 1.1) << "the same way down as the high one";
  rig.controls().MMSwitch3.move(2);
  const auto exponential = fallen(rig);
  EXPECT_LT(14 - exponential[1], 28 - exponential[0]) << "in proportion to its height";
  rig.controls().MMSwitch3.move(1);
  EXPECT_NEAR(fallen(rig)[0], uniform[0], 1) << "as fast, by whole spots";
}

TEST_F(BoardScales, VelocityIsTheSpeedOfTheFall) {
  rig.controls().MMSwitch3.move(3);
  rig.controls().MMLEDSpin1.move(2);
  const int slow = fallen(rig)[0];
  rig.controls().MMLEDSpin1.move(16);
  const int fast = fallen(rig)[0];
  EXPECT_NEAR(slow, kSpectrumRows * (1 - .24 * .22), 1.1);
  EXPECT_NEAR(fast, kSpectrumRows * (1 - 1.92 * .22), 1.6);
}

class BoardMarks : public BoardScales {
 protected:
  BoardMarks() {
    rig.controls().MMLEDX5.click.raise();
    rig.controls().MMSwitch3.move(0);  // the bars are down at once, only marks remain
  }
  std::vector<int> marks() { return rig.picture().rows_where(8, is_white); }
};

TEST_F(BoardMarks, DelayIsHowLongAMarkStands) {
  rig.controls().MMLEDSpin8.move(20);  // 60 % a second
  for (const int delay : {5, 50}) {
    rig.controls().MMLEDSpin4.move(delay);
    rig.picture_of(tone(8, -3));
    rig.hear_silence(.6);
    ASSERT_EQ(marks().size(), 1U) << delay;
    const double fell = delay == 50 ? 0 : .6 - delay * .02;  // 50 of them are a second
    EXPECT_NEAR(marks()[0], kSpectrumRows * (1 - .6 * fell), 2) << delay;
  }
}

TEST_F(BoardMarks, VelocityIsHowFastItFalls) {
  rig.controls().MMLEDSpin4.move(0);
  for (const int speed : {10, 25}) {
    rig.controls().MMLEDSpin8.move(speed);
    rig.picture_of(tone(8, -3));
    rig.hear_silence(.6);
    ASSERT_EQ(marks().size(), 1U) << speed;
    EXPECT_NEAR(marks()[0], kSpectrumRows * (1 - .03 * speed * .56), 2) << speed;
  }
}

TEST_F(BoardMarks, PicksIsTheirNumber) {
  rig.controls().MMLEDSpin8.move(20);
  rig.controls().MMLEDSpin4.move(5);
  for (const int number : {0, 1, 3}) {
    rig.controls().MMLEDSpin5.move(number);
    rig.hear_silence(3);
    for (const double db : {-3., -3., -3.}) {
      rig.hear(tone(8, db), .15);
      rig.hear_silence(.35);
    }
    EXPECT_EQ(marks().size(), static_cast<std::size_t>(number));
  }
}

}  // namespace
}  // namespace tandem::test

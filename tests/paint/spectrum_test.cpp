#include "paint/displays/spectrum.h"

#include <gtest/gtest.h>

#include <random>

#include "paint/strokes/palette.h"

namespace tandem {
namespace {

const QRectF kArea(264, 16, 337, 91);
const QRectF kWell(262, 14, 341, 95);

SpectrumBackdrop face_of(SpectrumKind kind, double scale = 1, int columns = 32, bool led = true, bool grid = false) {
  SpectrumStyle style;
  style.kind = kind;
  style.columns = columns;
  style.led_style = led;
  style.grid = grid;
  return {style, scale, kArea, kWell};
}

struct Frame {
  std::vector<float> left, right, left_peaks, right_peaks, roll;

  SpectrumPicture picture(int marks, std::uint64_t written) const {
    return {left, right, left_peaks, right_peaks, marks, {roll, roll, 20, written}};
  }
};

Frame random_frame(std::minstd_rand& random, int columns, int marks) {
  std::uniform_real_distribution<float> height(0, 1);
  Frame frame;
  for (int i = 0; i < columns; ++i) {
    frame.left.push_back(height(random));
    frame.right.push_back(height(random) < .5F ? 0 : height(random));
  }
  for (int i = 0; i < columns * marks; ++i) {
    frame.left_peaks.push_back(height(random) - .2F);
    frame.right_peaks.push_back(height(random));
  }
  for (int i = 0; i < 20 * kSpectrumRows; ++i) frame.roll.push_back(height(random));
  return frame;
}

QImage blank(const SpectrumBackdrop& face, const QPoint& origin) {
  QImage image(face.size() + QSize(2 * origin.x(), 2 * origin.y()), QImage::Format_RGB32);
  image.fill(0xFF123456);
  return image;
}

QImage drawn_at_once(const SpectrumBackdrop& face, const QPoint& origin, const SpectrumPicture& picture) {
  QImage image = blank(face, origin);
  SpectrumTrace nothing;
  update_spectrum(image, origin, face, picture, nothing);
  return image;
}

/// The part of `now` that differs from `before` lies within the rectangles.
void expect_changes_within(const QImage& before, const QImage& now, const ChangedRects& rects) {
  for (int y = 0; y < now.height(); ++y) {
    for (int x = 0; x < now.width(); ++x) {
      if (before.pixel(x, y) == now.pixel(x, y)) continue;
      const bool told = std::any_of(rects.begin(), rects.end(), [&](const QRect& r) { return r.contains(x, y); });
      ASSERT_TRUE(told) << x << ' ' << y;
    }
  }
}

class EveryKind : public ::testing::TestWithParam<std::tuple<int, double>> {
 protected:
  SpectrumKind kind() const { return static_cast<SpectrumKind>(std::get<0>(GetParam())); }
  double scale() const { return std::get<1>(GetParam()); }
};

TEST_P(EveryKind, StepByStepGivesThePictureDrawnAtOnce) {
  constexpr int kMarks = 3;
  const QPoint origin(7, 5);
  for (const bool led : {true, false}) {
    const SpectrumBackdrop face = face_of(kind(), scale(), 32, led, true);
    std::minstd_rand random(5);
    QImage image = blank(face, origin);
    SpectrumTrace standing;
    for (std::uint64_t step = 1; step < 12; ++step) {
      const Frame frame = random_frame(random, 32, kMarks);
      const SpectrumPicture picture = frame.picture(kMarks, step);
      const QImage before = image.copy();
      const ChangedRects rects = update_spectrum(image, origin, face, picture, standing);
      ASSERT_EQ(image, drawn_at_once(face, origin, picture)) << "step " << step;
      ASSERT_LE(rects.size(), 8);
      expect_changes_within(before, image, rects);
    }
  }
}

TEST_P(EveryKind, APictureThatStandsStillChangesNothing) {
  const SpectrumBackdrop face = face_of(kind(), scale());
  std::minstd_rand random(9);
  const Frame frame = random_frame(random, 32, 1);
  QImage image = blank(face, {0, 0});
  SpectrumTrace standing;
  EXPECT_EQ(update_spectrum(image, {0, 0}, face, frame.picture(1, 3), standing).size(), 1);
  EXPECT_TRUE(update_spectrum(image, {0, 0}, face, frame.picture(1, 3), standing).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Spectrum, EveryKind,
                         ::testing::Combine(::testing::Range(0, 6), ::testing::Values(1.0, 1.25, 2.0)));

QRgb middle_of_spot(const QImage& image, const SpectrumBackdrop& face, int column, int row) {
  const SpectrumGrid& grid = face.grid();
  return image.pixel(grid.column_x(0, column) + 1, grid.row_top[static_cast<std::size_t>(row)]);
}

TEST(Spectrum, LightsTheRoundedRowsInTheirColours) {
  const SpectrumBackdrop face = face_of(SpectrumKind::Bars);
  const std::vector<float> heights = {.25F, .5F, 1};
  SpectrumPicture picture;
  picture.left = heights;
  const QImage image = drawn_at_once(face, {0, 0}, picture);
  // The sheen lies over the left and upper part only faintly, so a lit spot stays within 20 levels of its colour.
  const auto is_lit = [&](int column, int row) { return qGreen(middle_of_spot(image, face, column, row)) > 200; };
  EXPECT_TRUE(is_lit(0, 6));
  EXPECT_FALSE(is_lit(0, 7));
  EXPECT_TRUE(is_lit(1, 13));
  EXPECT_FALSE(is_lit(1, 14));
  EXPECT_NEAR(qRed(middle_of_spot(image, face, 2, 19)), 0, 30) << "lime up to 70 %";
  EXPECT_NEAR(qRed(middle_of_spot(image, face, 2, 20)), 255, 5) << "yellow to 80 %";
  EXPECT_NEAR(qGreen(middle_of_spot(image, face, 2, 22)), 0, 30) << "red above";
}

TEST(Spectrum, SpotsOutOfTheSheenAreExact) {
  const SpectrumBackdrop face = face_of(SpectrumKind::Bars, 2);
  const std::vector<float> heights(32, .1F);
  SpectrumPicture picture;
  picture.right = heights;
  const QImage image = drawn_at_once(face, {0, 0}, picture);
  const int x = face.grid().column_x(1, 20) + 2;
  EXPECT_EQ(image.pixel(x, face.grid().row_top[0]), palette::kLime);
  EXPECT_EQ(image.pixel(x, face.grid().row_top[8] + 2), palette::kGreen) << "a dark spot is its lowest pixel";
  EXPECT_NE(image.pixel(x, face.grid().row_top[8]), palette::kGreen);
  EXPECT_EQ(image.pixel(x, 87 * 2 + 1), palette::kTeal);
}

TEST(Spectrum, InactiveSpotsCanBeHidden) {
  SpectrumStyle style;
  style.inactive = false;
  const SpectrumBackdrop face(style, 1, kArea, kWell);
  const QImage image = drawn_at_once(face, {0, 0}, {});
  const int x = face.grid().column_x(1, 20) + 1;
  EXPECT_LT(qGreen(image.pixel(x, face.grid().row_top[8] + 1)), 20);
}

TEST(Spectrum, PeakMarksFadeWithAge) {
  const SpectrumBackdrop face = face_of(SpectrumKind::Bars);
  const std::vector<float> peaks = {.9F, .6F, .3F};
  SpectrumPicture picture;
  picture.left_peaks = peaks;
  picture.marks_per_column = 3;
  const QImage image = drawn_at_once(face, {0, 0}, picture);
  const auto mark = [&](int rows) { return qBlue(middle_of_spot(image, face, 0, rows - 1)); };
  EXPECT_EQ(mark(25), 255);
  EXPECT_NEAR(mark(17), 153, 12);
  EXPECT_NEAR(mark(8), 89, 12);
}

TEST(Spectrum, ColumnsFillTheHalfAtTheDesignLength) {
  const SpectrumGrid grid = face_of(SpectrumKind::Bars).grid();
  EXPECT_EQ(grid.pitch, 5);
  EXPECT_EQ(grid.width, 4);
  EXPECT_EQ(grid.left[0], 4);
  EXPECT_EQ(grid.left[1], 4 + 160 + 9);
  EXPECT_EQ(face_of(SpectrumKind::Bars, 1.25).grid().pitch, 6);
}

TEST(Spectrum, ColumnsFillTheHalfAtAnyScale) {
  // 64 columns have no whole px each at 100 %, but whole device pixels at 200 %.
  EXPECT_EQ(face_of(SpectrumKind::Bars, 2, 64).grid().half_width(), 320);
  EXPECT_EQ(face_of(SpectrumKind::Bars, 1, 53).grid().pitch, 3);
  EXPECT_EQ(face_of(SpectrumKind::Bars, 1, 80).grid().width, 2) << "no gap between columns of 2 px";
}

TEST(Spectrum, AnyLengthStaysInTheArea) {
  for (const int bins : {2, 4, 8, 16, 32, 64, 128, 256, 1024, 2048}) {
    for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
      const int columns = spectrum_columns(bins);
      const SpectrumBackdrop face = face_of(SpectrumKind::Bars, scale, columns);
      const SpectrumGrid& grid = face.grid();
      EXPECT_GE(grid.left[0], 0);
      EXPECT_GT(grid.width, 0);
      EXPECT_LE(grid.left[0] + grid.half_width(), grid.left[1]);
      EXPECT_LE(grid.left[1] + grid.half_width(), face.size().width()) << bins << ' ' << scale;
    }
  }
}

TEST(Spectrum, MissingAndWildValuesAreHarmless) {
  const SpectrumBackdrop face = face_of(SpectrumKind::Bars);
  const std::vector<float> wild = {-3, 7};
  SpectrumPicture picture;
  picture.left = wild;
  picture.left_peaks = wild;
  picture.marks_per_column = 9;
  const QImage image = drawn_at_once(face, {0, 0}, picture);
  EXPECT_GT(qRed(middle_of_spot(image, face, 1, 27)), 180);
  EXPECT_LT(qGreen(middle_of_spot(image, face, 0, 0)), 140);
}

TEST(Spectrum, NotchesTheScaleStripAtTheOctaves) {
  const auto notches = [](int columns, double low, double high) {
    SpectrumStyle style;
    style.columns = columns;
    style.low = low;
    style.high = high;
    const SpectrumBackdrop face(style, 1, kArea, kWell);
    std::vector<int> found;
    for (int x = 0; x < 158; ++x) {
      if (qBlue(face.dark().pixel(face.grid().left[1] + x, 88)) < 60) found.push_back(x);
    }
    return found;
  };
  EXPECT_EQ(notches(32, 0, 1), (std::vector{4, 9, 19, 39, 79}));
  EXPECT_EQ(notches(80, 0, 1), (std::vector{2, 4, 9, 19, 39, 79})) << "wherever the columns are";
  EXPECT_EQ(notches(32, .25, .75), (std::vector{79}));
  EXPECT_EQ(notches(32, .1, .35), (std::vector{15, 95})) << "a closer look has its own";
}

TEST(Spectrum, MarksTheReferenceFrequency) {
  SpectrumStyle style;
  style.reference = .5;
  const SpectrumBackdrop face(style, 2, kArea, kWell);
  int white = 0;
  for (int x = 0; x < face.size().width() / 2; ++x) white += face.dark().pixel(x, 176) == palette::kWhite ? 1 : 0;
  EXPECT_EQ(white, 2) << "1 px at 200 %";
}

}  // namespace
}  // namespace tandem

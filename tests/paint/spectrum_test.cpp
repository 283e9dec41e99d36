#include "paint/displays/spectrum.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "paint/spectrum_well.h"
#include "paint/strokes/palette.h"

namespace tandem {
namespace {

SpectrumStyle style_of(AnalyserKind kind, double scale = 1, bool solid = false) {
  SpectrumStyle style;
  style.kind = kind;
  style.solid = solid;
  style.grid = spectrum_grid(64, scale);
  return style;
}

SpectrumBackdrop face_of(const SpectrumStyle& style) { return {style, kArea, kWell}; }
SpectrumBackdrop face_of(AnalyserKind kind, double scale = 1, bool solid = false) {
  return face_of(style_of(kind, scale, solid));
}

struct Frame {
  std::vector<float> left, right, left_peaks, right_peaks, roll;

  SpectrumPicture picture(int marks, std::uint64_t written) const {
    return {left, right, left_peaks, right_peaks, marks, {roll, roll, 20, 28, written}};
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
  for (int i = 0; i < 20 * 28; ++i) frame.roll.push_back(height(random));
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
      const bool reported = std::any_of(rects.begin(), rects.end(), [&](const QRect& r) { return r.contains(x, y); });
      ASSERT_TRUE(reported) << x << ' ' << y;
    }
  }
}

class EveryKind : public ::testing::TestWithParam<std::tuple<int, double>> {
 protected:
  AnalyserKind kind() const { return static_cast<AnalyserKind>(std::get<0>(GetParam())); }
  double scale() const { return std::get<1>(GetParam()); }
};

TEST_P(EveryKind, StepByStepGivesThePictureDrawnAtOnce) {
  constexpr int kMarks = 3;
  const QPoint origin(7, 5);
  for (const bool solid : {true, false}) {
    SpectrumStyle style = style_of(kind(), scale(), solid);
    style.grid_lines = true;
    const SpectrumBackdrop face = face_of(style);
    std::minstd_rand random(5);
    QImage image = blank(face, origin);
    SpectrumTrace standing;
    for (std::uint64_t step = 1; step < 12; ++step) {
      const Frame frame = random_frame(random, 33, kMarks);
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
  const Frame frame = random_frame(random, 33, 1);
  QImage image = blank(face, {0, 0});
  SpectrumTrace standing;
  EXPECT_EQ(update_spectrum(image, {0, 0}, face, frame.picture(1, 3), standing).size(), 1);
  EXPECT_TRUE(update_spectrum(image, {0, 0}, face, frame.picture(1, 3), standing).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Spectrum, EveryKind,
                         ::testing::Combine(::testing::Range(0, kAnalyserKinds), ::testing::Values(1.0, 1.25, 2.0)));

QRgb middle_of_spot(const QImage& image, const SpectrumBackdrop& face, int column, int row) {
  const SpectrumGrid& grid = face.grid();
  return image.pixel(grid.column_x(0, column) + 1, grid.row_top(row));
}

TEST(Spectrum, LightsTheRoundedRowsInTheirColours) {
  const SpectrumBackdrop face = face_of(AnalyserKind::Bar);
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
  const SpectrumBackdrop face = face_of(AnalyserKind::Bar, 2);
  const std::vector<float> heights(33, .1F);
  SpectrumPicture picture;
  picture.right = heights;
  const QImage image = drawn_at_once(face, {0, 0}, picture);
  const int x = face.grid().column_x(1, 20) + 2;
  EXPECT_EQ(image.pixel(x, face.grid().row_top(0)), palette::kLime);
  EXPECT_EQ(image.pixel(x, face.grid().row_top(8) + 2), palette::kGreen) << "a dark spot is its lowest px";
  EXPECT_NE(image.pixel(x, face.grid().row_top(8)), palette::kGreen);
  EXPECT_EQ(image.pixel(x, 87 * 2 + 1), palette::kTeal);
}

TEST(Spectrum, InactiveSpotsCanBeHidden) {
  SpectrumStyle style;
  style.inactive = false;
  const SpectrumBackdrop face(style, kArea, kWell);
  const QImage image = drawn_at_once(face, {0, 0}, {});
  const int x = face.grid().column_x(1, 20) + 1;
  EXPECT_LT(qGreen(image.pixel(x, face.grid().row_top(8) + 1)), 20);
}

TEST(Spectrum, PeakMarksFadeWithAge) {
  const SpectrumBackdrop face = face_of(AnalyserKind::Bar);
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

TEST(Spectrum, MissingAndWildValuesAreHarmless) {
  const SpectrumBackdrop face = face_of(AnalyserKind::Bar);
  const std::vector<float> wild = {-3, 7};
  SpectrumPicture picture;
  picture.left = wild;
  picture.left_peaks = wild;
  picture.marks_per_column = 9;
  const QImage image = drawn_at_once(face, {0, 0}, picture);
  EXPECT_GT(qRed(middle_of_spot(image, face, 1, 27)), 180);
  EXPECT_LT(qGreen(middle_of_spot(image, face, 0, 0)), 140);
}

QImage solid_bars(float height) {
  const SpectrumBackdrop face = face_of(AnalyserKind::Bar, 1, true);
  const std::vector<float> heights(33, height);
  SpectrumPicture picture;
  picture.right = heights;
  return drawn_at_once(face, {0, 0}, picture);
}

TEST(Spectrum, SolidBarsFallByPartsOfAPixel) {
  const SpectrumGrid grid = spectrum_grid(64, 1);
  const int x = grid.column_x(1, 20) + 1;
  const int y = grid.baseline - 11;  // the topmost line of a bar of 10.5 px
  const int whole = qGreen(solid_bars(11.F / 84).pixel(x, y));
  const int half = qGreen(solid_bars(10.5F / 84).pixel(x, y));
  const int quarter = qGreen(solid_bars(10.25F / 84).pixel(x, y));
  const int none = qGreen(solid_bars(10.F / 84).pixel(x, y));
  EXPECT_LT(none, quarter);
  EXPECT_LT(quarter, half);
  EXPECT_LT(half, whole);
}

TEST(Spectrum, SolidBarsRunFromGreenOverYellowToRedUnderALightEdge) {
  const SpectrumGrid grid = spectrum_grid(64, 1);
  const QImage image = solid_bars(.95F);
  const int x = grid.column_x(1, 20) + 1;
  const auto at = [&](double share) {
    return image.pixel(x, grid.baseline - 1 - static_cast<int>(share * grid.height()));
  };
  EXPECT_LT(qGreen(at(.05)), 140) << "dark at the foot";
  EXPECT_GT(qGreen(at(.64)), 240);
  EXPECT_GT(qRed(at(.755)), 240);
  EXPECT_GT(qGreen(at(.755)), 230);
  EXPECT_LT(qGreen(at(.88)), 40);
  EXPECT_GT(qBlue(image.pixel(x, grid.baseline - static_cast<int>(.95 * grid.height()) - 1)), 60) << "the edge";
  EXPECT_LT(qBlue(at(.90)), 30);
}

TEST(Spectrum, TheLineIsSmoothAndInTheGradientsColours) {
  const SpectrumBackdrop face = face_of(AnalyserKind::Lines, 2);
  std::vector<float> heights(33, .2F);
  heights[16] = .95F;
  SpectrumPicture picture;
  picture.right = heights;
  const QImage image = drawn_at_once(face, {0, 0}, picture);
  const SpectrumGrid& grid = face.grid();
  const auto brightest = [&](int x) {
    int best = 0;
    int at = 0;
    for (int y = grid.top(); y < grid.baseline; ++y) {
      const int light = qRed(image.pixel(x, y)) + qGreen(image.pixel(x, y));
      if (light > best) {
        best = light;
        at = y;
      }
    }
    return at;
  };
  const int peak = grid.column_x(1, 16) + grid.column_width() / 2;
  EXPECT_NEAR(brightest(peak), grid.baseline - .95 * grid.height(), 3);
  EXPECT_GT(qRed(image.pixel(peak, brightest(peak))), 200);
  EXPECT_LT(qGreen(image.pixel(peak, brightest(peak))), 60);
  for (int x = peak - grid.pitch; x < peak; ++x) EXPECT_GE(brightest(x), brightest(x + 1) - 1) << "rises all the way";
  EXPECT_LT(qRed(image.pixel(peak - 3 * grid.pitch, brightest(peak - 3 * grid.pitch))), 60) << "green where low";
}

TEST(Spectrum, ALineFollowsWhatIsLessThanARow) {
  const SpectrumBackdrop face = face_of(AnalyserKind::Lines, 2);
  QImage image = blank(face, {0, 0});
  SpectrumTrace standing;
  for (const float height : {.500F, .512F}) {
    const std::vector<float> heights(33, height);
    SpectrumPicture picture;
    picture.left = picture.right = heights;
    update_spectrum(image, {0, 0}, face, picture, standing);
    EXPECT_EQ(image, drawn_at_once(face, {0, 0}, picture)) << height;
  }
}

TEST(Spectrum, EveryKindOfDrawingLooksDifferent) {
  std::minstd_rand random(3);
  const Frame frame = random_frame(random, 33, 1);
  std::vector<QImage> images;
  for (int kind = 0; kind < kAnalyserKinds; ++kind)
    for (const bool solid : {false, true}) {
      if (solid && (kind == 1 || kind == 4 || kind == 5)) continue;  // these have neither rows nor bars, or rows always
      images.push_back(drawn_at_once(face_of(static_cast<AnalyserKind>(kind), 1, solid), {0, 0}, frame.picture(0, 9)));
    }
  for (std::size_t a = 0; a < images.size(); ++a)
    for (std::size_t b = 0; b < a; ++b) EXPECT_NE(images[a], images[b]) << a << ' ' << b;
}

}  // namespace
}  // namespace tandem

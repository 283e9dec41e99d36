#include "paint/text/decibel_letters.h"

#include <gtest/gtest.h>

#include "paint/strokes/palette.h"
#include "sketch.h"

namespace tandem {
namespace {

QImage letters(double scale) {
  return sketch({30, 20}, scale, [](QPainter& painter) {
    draw_decibel_letters(painter, {22.5, 16.25}, palette::kSilver);
  });
}

/// Columns of the whole colour from the baseline up to `top` px above it.
int upright_columns(const QImage& picture, double scale, double top) {
  const int bottom = static_cast<int>(std::floor(16.25 * scale + .5));
  int columns = 0;
  for (int x = 0; x < picture.width(); ++x) {
    bool whole = true;
    for (int y = bottom - static_cast<int>(top * scale); y < bottom; ++y)
      whole = whole && picture.pixel(x, y) == palette::kSilver;
    if (whole) ++columns;
  }
  return columns;
}

TEST(DecibelLetters, StemsStandOnWholePixelsAtEveryScale) {
  for (const double scale : {1., 1.25, 1.5, 1.75, 2., 3.}) {
    const QImage picture = letters(scale);
    const int both = upright_columns(picture, scale, 7.8);
    EXPECT_GE(both, 2 * static_cast<int>(2 * scale)) << scale;
    EXPECT_LE(both, 2 * static_cast<int>(2.2 * scale + 1)) << scale;
    const int baseline = static_cast<int>(std::floor(16.25 * scale + .5));
    for (int x = static_cast<int>(16 * scale); x < static_cast<int>(18 * scale); ++x)
      EXPECT_EQ(picture.pixel(x, baseline), palette::kBlack) << "below the B at " << scale;
  }
}

TEST(DecibelLetters, AreAsWideAsTheyAreSaidToBe) {
  const QImage picture = letters(2);
  int first = picture.width();
  int last = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (qGray(picture.pixel(x, y)) < 60) continue;
      first = std::min(first, x);
      last = std::max(last, x);
    }
  }
  EXPECT_NEAR(first, 2 * (22.5 - 16.5), 1);
  EXPECT_NEAR(last + 1, 2 * (22.5 - .5), 1);
}

TEST(DecibelLetters, HaveTheirHoles) {
  const QImage picture = letters(2);
  const auto at = [&picture](double left_of_end, double above) {
    return qGray(picture.pixel(static_cast<int>(2 * (22.5 - left_of_end)), static_cast<int>(2 * (16.5 - above))));
  };
  EXPECT_LT(at(13.2, 3.2), 40) << "of the d";
  EXPECT_LT(at(4.8, 6.2), 40) << "the upper one of the B";
  EXPECT_LT(at(4.6, 2.5), 40) << "the lower one of the B";
  EXPECT_GT(at(4.6, 4.4), 180) << "the bar between them";
}

}  // namespace
}  // namespace tandem

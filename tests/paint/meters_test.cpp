#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

#include "paint/displays/level_bar.h"
#include "paint/displays/needle_meter.h"
#include "paint/displays/oscilloscope.h"
#include "paint/strokes/distance_field.h"
#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "sketch.h"

namespace tandem {
namespace {

const QRectF kMeterWell(262, 14, 341, 95);
const QRectF kMeter(264, 16, 162, 91);
const QRectF kScopeArea(264, 16, 337, 91);

QImage black(const QSize& size) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::black);
  return image;
}

TEST(DistanceField, CoversALineAsWideAsItIs) {
  const StrokeProfile profile(palette::kWhite, {{4, 1}});
  DistanceField field({40, 20}, profile.reach());
  field.add_line({5, 10}, {35, 10});
  QImage image = black({40, 20});
  field.blend(image, {0, 0}, profile);
  EXPECT_EQ(image.pixel(20, 9), palette::kWhite);
  EXPECT_EQ(image.pixel(20, 8), palette::kWhite);
  EXPECT_EQ(image.pixel(20, 7), 0xFF000000);
  EXPECT_EQ(image.pixel(20, 12), 0xFF000000);
  EXPECT_EQ(image.pixel(39, 10), 0xFF000000);
}

TEST(DistanceField, ThinLinesShowTheirShare) {
  const StrokeProfile profile(palette::kWhite, {{.5, 1}});
  DistanceField field({40, 20}, profile.reach());
  field.add_line({5, 10.5}, {35, 10.5});
  QImage image = black({40, 20});
  field.blend(image, {0, 0}, profile);
  EXPECT_NEAR(qGray(image.pixel(20, 10)), 128, 3);
}

TEST(DistanceField, CrossingLinesDoNotAddUp) {
  const StrokeProfile profile(palette::kWhite, {{6, .5}});
  DistanceField field({40, 40}, profile.reach());
  field.add_line({5, 20}, {35, 20});
  field.add_line({20, 5}, {20, 35});
  QImage image = black({40, 40});
  field.blend(image, {0, 0}, profile);
  EXPECT_EQ(image.pixel(20, 20), image.pixel(10, 20));
  EXPECT_NEAR(qGray(image.pixel(20, 20)), 128, 2);
}

TEST(DistanceField, LongSteepLinesAreWhole) {
  const StrokeProfile profile(palette::kWhite, {{3, 1}});
  DistanceField field({120, 100}, profile.reach());
  const QPointF from(10, 90);
  const QPointF to(110, 5);
  field.add_line(from, to);
  QImage image = black({120, 100});
  field.blend(image, {0, 0}, profile);
  for (int i = 0; i <= 100; ++i) {
    EXPECT_GT(qGray(image.pixel((from + (to - from) * i / 100).toPoint())), 200) << i;
  }
}

TEST(DistanceField, ForgetsAndStaysInside) {
  const StrokeProfile profile(palette::kWhite, {{2, 1}});
  DistanceField field({20, 20}, profile.reach());
  field.add_line({-50, -50}, {70, 70});
  EXPECT_TRUE(QRect(0, 0, 20, 20).contains(field.touched()));
  field.clear();
  QImage image = black({20, 20});
  field.blend(image, {0, 0}, profile);
  EXPECT_EQ(image, black({20, 20}));
  field.add_line({-50, 5}, {-30, 9});
  EXPECT_TRUE(field.touched().isEmpty());
}

// Every pixel against the distance that geometry gives it, whichever blocks and rows the lines cross.
TEST(DistanceField, EveryPixelIsAsFarAsItIs) {
  const QPointF points[] = {{3, 20}, {17.5, 4}, {18, 55.5}, {60, 40}, {61, 12}, {95.5, 13}, {130, 59}};
  const StrokeProfile profile(palette::kWhite, {{9, .3}, {3, 1}});
  DistanceField field({101, 60}, profile.reach());
  for (const QPointF& before : {QPointF(50, 50), QPointF(100, 5)}) {  // what was there before is forgotten
    field.add_line({0, 0}, before);
    field.clear();
  }
  for (std::size_t i = 1; i < std::size(points); ++i) field.add_line(points[i - 1], points[i]);
  QImage image = black({101, 60});
  field.blend(image, {0, 0}, profile);
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 101; ++x) {
      double least = 1e9;
      for (std::size_t i = 1; i < std::size(points); ++i) {
        const QPointF along = points[i] - points[i - 1];
        const QPointF to = QPointF(x + .5, y + .5) - points[i - 1];
        const double at = std::clamp(QPointF::dotProduct(to, along) / QPointF::dotProduct(along, along), 0., 1.);
        const QPointF away = to - at * along;
        least = std::min(least, QPointF::dotProduct(away, away));
      }
      const bool near = least < profile.reach() * profile.reach();
      const unsigned share = near ? profile.share(static_cast<float>(least)) : 0;
      ASSERT_NEAR(qGray(image.pixel(x, y)), 255 * share / 256., 3) << x << ' ' << y;
    }
  }
}

TEST(DistanceField, TakesItsStrokesBackOut) {
  const StrokeProfile profile(palette::kWhite, {{5, 1}});
  DistanceField field({70, 50}, profile.reach());
  QImage still = black({70, 50});
  still.fill(0xFF123456);
  QImage image = still;
  field.add_line({-5, 10}, {80, 45});
  field.add_line({40, 49}, {41, 0});
  field.blend(image, {0, 0}, profile);
  EXPECT_NE(image, still);
  field.restore(image, {0, 0}, still);
  EXPECT_EQ(image, still);
}

TEST(NeedleMeter, AnglesFollowTheScale) {
  EXPECT_NEAR(needle_angle(3), 43, .01);
  EXPECT_NEAR(needle_angle(-200), -43, .01);
  EXPECT_NEAR(needle_angle(0), -43 + 86 / 1.41254, .01);
  EXPECT_LT(needle_angle(-20), needle_angle(-10));
}

QPointF needle_middle(double db, double scale) {
  return on_circle(QPointF(81, 121) * scale, 70 * scale, needle_angle(db));
}

TEST(NeedleMeter, PointsToItsReading) {
  for (const double scale : {1.0, 1.25, 2.0}) {
    NeedleBackdrop face(scale, kMeter, kMeterWell, false);
    for (const double db : {-40.0, -10.0, -3.0, 0.0, 3.0}) {
      QImage image = black(face.size());
      QRect standing;
      face.draw(image, {0, 0}, db, standing);
      const QPointF at = needle_middle(db, scale);
      EXPECT_GT(qRed(image.pixel(static_cast<int>(at.x()), static_cast<int>(at.y()))), 150) << db << ' ' << scale;
    }
  }
}

TEST(NeedleMeter, StepByStepGivesThePictureDrawnAtOnce) {
  NeedleBackdrop face(1.5, kMeter, kMeterWell, true);
  QImage moving = black(face.size());
  QRect standing;
  for (int i = 0; i < 40; ++i) {
    const double db = -20 + 23 * std::abs(std::sin(i * .4));
    const QImage before = moving.copy();
    const QRect changed = face.draw(moving, {0, 0}, db, standing);
    QImage at_once = black(face.size());
    QRect nothing;
    face.draw(at_once, {0, 0}, db, nothing);
    ASSERT_EQ(moving, at_once) << i;
    for (int y = 0; y < moving.height(); ++y) {
      for (int x = 0; x < moving.width(); ++x) {
        if (changed.contains(x, y)) continue;
        ASSERT_EQ(moving.pixel(x, y), before.pixel(x, y));
      }
    }
  }
}

TEST(NeedleMeter, StopsJustBeyondTheScale) {
  NeedleBackdrop face(1, kMeter, kMeterWell, false);
  QImage image = black(face.size());
  QRect standing;
  face.draw(image, {0, 0}, 60, standing);
  EXPECT_TRUE(QRect(QPoint(0, 0), face.size()).contains(standing));
  EXPECT_GT(standing.right(), 130);
}

TEST(LevelBar, LightsItsRows) {
  const auto picture = [](LevelPicture level) {
    return sketch({13, 91}, 1, [&](QPainter& painter) { paint_level_bar(painter, {0, 0, 13, 91}, level); });
  };
  const QImage image = picture({3, 22});
  EXPECT_EQ(image.pixel(3, 87), palette::kLime);
  EXPECT_EQ(image.pixel(3, 90 - 3 * 4 + 2), palette::kLime);
  EXPECT_EQ(image.pixel(3, 90 - 4 * 4 + 2), palette::kGreen) << "row 4 is dark";
  EXPECT_EQ(image.pixel(9, 90 - 13 * 4 + 2), palette::kLime);
  EXPECT_EQ(image.pixel(9, 90 - 14 * 4 + 2), palette::kYellow) << "13.5 of 22 rows are above 60 %";
  EXPECT_EQ(image.pixel(3, 90 - 22 * 4 + 2), palette::kOlive);
}

TEST(Oscilloscope, TracesGoThroughTheirValues) {
  for (const double scale : {1.0, 1.25, 2.0}) {
    ScopeBackdrop face(scale, kScopeArea, kMeterWell);
    std::vector<float> left;
    for (int i = 0; i < kScopeValues; ++i) {
      left.push_back(static_cast<float>(.8 * std::sin(i * 2 * std::numbers::pi / 120)));
    }
    QImage image = black(face.size());
    face.draw(image, {0, 0}, {left, {}});
    for (int i = 5; i < 330; i += 13) {
      const double y = (45.5 - static_cast<double>(left[static_cast<std::size_t>(i)]) * 45.5) * scale;
      EXPECT_GT(qGreen(image.pixel(static_cast<int>(i * scale), static_cast<int>(y))), 150) << i << ' ' << scale;
    }
  }
}

TEST(Oscilloscope, LeftLiesOverRightAndWildValuesAreClamped) {
  ScopeBackdrop face(1, kScopeArea, kMeterWell);
  const std::vector<float> level(kScopeValues, .5F);
  QImage image = black(face.size());
  face.draw(image, {0, 0}, {level, level});
  EXPECT_LT(qBlue(image.pixel(100, 22)), 40) << "lime, not aqua";
  face.draw(image, {0, 0}, {{}, level});
  EXPECT_GT(qBlue(image.pixel(100, 22)), 100);
  const std::vector<float> wild = {9, -9, 9, -9};
  face.draw(image, {0, 0}, {wild, wild});
  EXPECT_GT(qGreen(image.pixel(1, 45)), 200);
}

TEST(Oscilloscope, LeavesNothingOfThePictureBefore) {
  ScopeBackdrop face(1.25, kScopeArea, kMeterWell);
  const std::vector<float> high(kScopeValues, .9F);
  const std::vector<float> low(kScopeValues, -.9F);
  QImage used = black(face.size());
  EXPECT_EQ(face.draw(used, {0, 0}, {high, low}), used.rect());
  const QRect drawn = face.draw(used, {0, 0}, {low, high});
  EXPECT_TRUE(drawn.top() < 15 && drawn.bottom() > 100) << "where traces stood and stand";
  const std::vector<float> quiet(kScopeValues, 0.F);
  face.draw(used, {0, 0}, {quiet, quiet});
  EXPECT_LT(face.draw(used, {0, 0}, {quiet, quiet}).height(), 20);
  face.draw(used, {0, 0}, {low, high});
  ScopeBackdrop other(1.25, kScopeArea, kMeterWell);
  QImage fresh = black(face.size());
  other.draw(fresh, {0, 0}, {low, high});
  EXPECT_EQ(used, fresh);
}

/// The greatest difference of two pictures of one size.
int furthest(const QImage& a, const QImage& b) {
  int most = 0;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x) most = std::max(most, std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))));
  return most;
}

/// The device pixels of `box`, painted over `ground`.
QImage painted_over(QRgb ground, const QRectF& box, double scale, const std::function<void(QPainter&)>& paint) {
  const auto pixel = [scale](double at) { return static_cast<int>(std::lround(at * scale)); };
  const QPoint corner(pixel(box.left()), pixel(box.top()));
  const QImage all = sketch({607, 120}, scale, [&](QPainter& painter) {
    painter.fillRect(0, 0, 607, 120, QColor::fromRgb(ground));
    paint(painter);
  });
  return all.copy(QRect(corner, QSize(pixel(box.right()), pixel(box.bottom())) - QSize(corner.x(), corner.y())));
}

// Where a box ends within a device pixel nothing of what was there before shines through: a picture begins as whatever
// the memory held.
TEST(Meters, CoverTheirDevicePixelsAtEveryScale) {
  constexpr int kRounding = 1;  // of an edge that is brought to a whole pixel and back
  const QRectF bar(426, 16, 13, 91);
  const auto face = [](QPainter& painter) { paint_needle_face(painter, kMeter, false); };
  const auto level = [&bar](QPainter& painter) { paint_level_bar(painter, bar, {12, 3}); };
  for (const double scale : {1., 1.25, 1.5, 1.75, 2., 2.25, 2.5, 3.}) {
    const auto shines_through = [scale](const QRectF& box, const std::function<void(QPainter&)>& paint) {
      return furthest(painted_over(palette::kBlack, box, scale, paint),
                      painted_over(palette::kWhite, box, scale, paint));
    };
    EXPECT_LE(shines_through(kMeter, face), kRounding) << scale;
    EXPECT_LE(shines_through(bar, level), kRounding) << scale;
  }
}

}  // namespace
}  // namespace tandem

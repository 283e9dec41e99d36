#include "paint/strokes/palette.h"

#include <gtest/gtest.h>

#include <cmath>

#include "paint/strokes/ink.h"
#include "sketch.h"

namespace tandem {
namespace {

TEST(Palette, ReadsBlueGreenRedNumbers) {
  EXPECT_EQ(from_bgr(33023).rgb(), palette::kOrange);
  EXPECT_EQ(from_bgr(16512).rgb(), palette::kBrown);
  EXPECT_EQ(from_bgr(0x00C0C0).rgb(), palette::kGauge);
  EXPECT_EQ(from_bgr(0x0040C0).rgb(), 0xFFC04000);
  EXPECT_EQ(from_bgr(0xFF8080).rgb(), 0xFF8080FF);
  EXPECT_EQ(from_bgr(0xFF000000U | 0x0000FF).rgb(), palette::kRed) << "the high byte is no colour";
}

TEST(Ink, MixesChannelByChannel) {
  EXPECT_EQ(mixed(0xFF000000, 0xFF6496C8, 0), 0xFF000000);
  EXPECT_EQ(mixed(0xFF000000, 0xFF6496C8, 1), 0xFF6496C8);
  EXPECT_EQ(mixed(0xFF000000, 0xFF6496C8, .5), 0xFF324B64);
}

TEST(Ink, CountsAnglesClockwiseFromTwelve) {
  const QPointF three = on_circle({10, 10}, 5, 90);
  EXPECT_NEAR(three.x(), 15, 1e-9);
  EXPECT_NEAR(three.y(), 10, 1e-9);
  EXPECT_NEAR(on_circle({10, 10}, 5, 0).y(), 5, 1e-9);
}

TEST(Ink, SnapsToWholeDevicePixels) {
  QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
  QPainter painter(&image);
  set_up(painter, 1.25);
  const QRectF box = snapped(painter, {10, 10, 20, .2});
  EXPECT_NEAR(box.left() * 1.25, 13, 1e-9);  // 12.5 rounds up
  EXPECT_NEAR(box.width() * 1.25, 25, 1e-9);
  EXPECT_NEAR(box.height() * 1.25, 1, 1e-9) << "a thin line keeps one device pixel";
}

TEST(Ink, DevicePixelsIgnoreTheScale) {
  QImage image(60, 60, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::black);
  QPainter painter(&image);
  painter.translate(5, 5);
  set_up(painter, 1.5);
  {
    const DevicePixels pixels(painter);
    painter.fillRect(QRect(pixels.at({10, 10}), QSize(1, 1)), Qt::red);
  }
  EXPECT_EQ(image.pixel(20, 20), 0xFFFF0000);
  EXPECT_EQ(image.pixel(21, 20), 0xFF000000);
  EXPECT_DOUBLE_EQ(device_scale(painter), 1.5) << "the painter's own transform is back";
}

// A part of a picture is painted from another origin, which puts what hangs over its edge left of 0.
TEST(Ink, RoundsAlikeFromEveryOrigin) {
  QImage image(60, 60, QImage::Format_ARGB32_Premultiplied);
  const auto nearest = [&image](double origin) {
    QPainter painter(&image);
    set_up(painter, 1.5);
    painter.translate(-origin, 0);
    const double snapped_left = snapped(painter, {67, 0, 3, 3}).left();
    return QPointF(DevicePixels(painter).at({67, 0}).x() + origin * 1.5, snapped_left);
  };
  EXPECT_EQ(nearest(0).x(), 101);
  EXPECT_EQ(nearest(68).x(), 101) << "1.5 device pixels left of the part";
  EXPECT_NEAR(nearest(68).y(), nearest(0).y(), 1e-9);
}

// A part that is painted again is cut out by a clip: a line in it is the same line.
TEST(Ink, LinesAreTheSameUnderEveryClip) {
  const auto cross = [](const QRect& clip) {
    return sketch({20, 20}, 1.75, [&clip](QPainter& painter) {
      painter.setClipRect(clip);
      draw_line(painter, {7, 4.5}, {13, 10.5}, Qt::white, 1.4);
      draw_line(painter, {13, 4.5}, {7, 10.5}, Qt::white, 1.4);
    });
  };
  const QImage whole = cross({0, 0, 20, 20});
  for (int cut = 1; cut < 20; ++cut) {
    const QRect below(0, cut, 20, 20 - cut);
    const int first = static_cast<int>(std::floor(cut * 1.75 + .5));
    EXPECT_EQ(cross(below).copy(0, first, 35, 35 - first), whole.copy(0, first, 35, 35 - first)) << cut;
    const QRect right(cut, 0, 20 - cut, 20);
    EXPECT_EQ(cross(right).copy(first, 0, 35 - first, 35), whole.copy(first, 0, 35 - first, 35)) << cut;
  }
}

}  // namespace
}  // namespace tandem

#include "paint/gauge.h"

#include <cmath>

#include "paint/ink.h"
#include "paint/palette.h"

namespace tandem {

namespace {

constexpr double kSegmentPitch = 4;
constexpr double kSegmentWidth = 3;

struct Segments {
  QPainterPath lit;
  QPainterPath high;
  QPainterPath dark;
};

Segments segment_paths(const QRectF& box, double percent) {
  Segments paths;
  const int count = static_cast<int>((box.width() + 1) / kSegmentPitch);
  const auto lit = static_cast<int>(std::lround(percent * count / 100));
  for (int i = 0; i < count; ++i) {
    const double x = box.left() + i * kSegmentPitch;
    if (i >= lit) {
      paths.dark.addRect(x, box.bottom() - 2, kSegmentWidth, 2);
    } else {
      ((i + 1) * 100.0 / count > 75 ? paths.high : paths.lit).addRect(x, box.top(), kSegmentWidth, box.height());
    }
  }
  return paths;
}

}  // namespace

void paint_gauge(QPainter& painter, const QRectF& box, double percent) {
  const Segments paths = segment_paths(box, percent);
  QPainterPath glowing = paths.lit;
  glowing.addPath(paths.high);
  fill_path(painter, paths.dark, QColor::fromRgb(palette::kOlive));
  stroke_path(painter, glowing, faded(palette::kGauge, .16), 2, Qt::FlatCap, Qt::MiterJoin);
  fill_path(painter, paths.lit, QColor::fromRgb(palette::kGauge));
  fill_path(painter, paths.high, QColor::fromRgb(palette::kYellow));
}

void paint_pitch_lamp(QPainter& painter, const QRectF& box, QRgb colour, bool lit) {
  if (!lit) {
    const QRectF line = box.adjusted(0, 1.5, 0, -1.5);
    fill_box(painter, line, QColor::fromRgb(colour), line.height() / 2);
    return;
  }
  fill_box(painter, box.adjusted(-3, -3, 3, 3), faded(colour, .10), 6);
  fill_box(painter, box.adjusted(-1.5, -1.5, 1.5, 1.5), faded(colour, .24), 4.5);
  fill_box(painter, box, QColor::fromRgb(colour), box.height() / 2);
  fill_box(painter, {box.left() + 3, box.top() + 1, box.width() - 6, 1.5}, faded(palette::kWhite, .7), .75);
}

void paint_lamp_link(QPainter& painter, const QRectF& left_lamp, const QRectF& right_lamp) {
  const QRectF link(left_lamp.right(), left_lamp.top() + 2.5, right_lamp.left() - left_lamp.right(), 1);
  fill_box(painter, link, faded(palette::kWhite, .16));
}

}  // namespace tandem

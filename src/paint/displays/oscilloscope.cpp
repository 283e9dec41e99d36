#include "paint/displays/oscilloscope.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/surfaces/panels.h"

namespace tandem {

namespace {

double middle(const QRectF& box) { return box.top() + box.height() / 2; }

QImage still_picture(double scale, const QRectF& area, const QRectF& well) {
  QImage image(static_cast<int>(std::lround(area.width() * scale)),
               static_cast<int>(std::lround(area.height() * scale)), QImage::Format_RGB32);
  QPainter painter(&image);
  set_up(painter, scale);
  painter.translate(-area.topLeft());
  paint_glass(painter, well);
  paint_graticule(painter, area);
  paint_glass_shine(painter, well);
  return image;
}

}  // namespace

void paint_graticule(QPainter& painter, const QRectF& box) {
  const double mid = middle(box);
  QPainterPath dotted;
  for (int i = 1; i < 12; ++i) {
    const double x = std::round(box.left() + box.width() * i / 12) + .5;
    dotted.moveTo(x, box.top());
    dotted.lineTo(x, box.bottom());
  }
  for (const int k : {-3, -2, -1, 1, 2, 3}) {
    dotted.moveTo(box.left(), mid + k * 13);
    dotted.lineTo(box.right(), mid + k * 13);
  }
  const QColor teal = QColor::fromRgb(palette::kTeal);
  dot_path(painter, dotted, teal, 1, 2);
  QPainterPath ticks;
  for (int i = 0; i <= 60; ++i) {
    const double reach = i % 5 == 0 ? 3 : 1.5;
    ticks.moveTo(box.left() + box.width() * i / 60, mid - reach);
    ticks.lineTo(box.left() + box.width() * i / 60, mid + reach);
  }
  stroke_path(painter, ticks, teal, 1);
  draw_line(painter, {box.left(), mid}, {box.right(), mid}, teal, 1);
}

ScopeBackdrop::ScopeBackdrop(double scale, const QRectF& area, const QRectF& well)
    : scale_(scale),
      still_(still_picture(scale, area, well)),
      left_profile_(palette::kLime, {{4.5 * scale, .10}, {2.4 * scale, .22}, {1.2 * scale, 1}}),
      right_profile_(palette::kAqua, {{.9 * scale, .75}}),
      left_(still_.size(), left_profile_.reach()),
      right_(still_.size(), right_profile_.reach()) {}

QRect ScopeBackdrop::draw(QImage& image, const QPoint& origin, const ScopePicture& picture) {
  const QRect stood = left_.touched() | right_.touched();
  if (fresh_) {
    for (int y = 0; y < still_.height(); ++y) {
      std::memcpy(reinterpret_cast<QRgb*>(image.scanLine(y + origin.y())) + origin.x(), still_.constScanLine(y),
                  static_cast<std::size_t>(still_.width()) * sizeof(QRgb));
    }
  }
  right_.restore(image, origin, still_);
  left_.restore(image, origin, still_);
  place(right_, picture.right);
  place(left_, picture.left);
  right_.blend(image, origin, right_profile_);
  left_.blend(image, origin, left_profile_);
  const bool all = std::exchange(fresh_, false);
  return (all ? QRect(QPoint(0, 0), still_.size()) : stood | left_.touched() | right_.touched()).translated(origin);
}

void ScopeBackdrop::place(DistanceField& field, std::span<const float> values) const {
  const double middle = still_.height() / 2.0;
  const auto point = [&](std::size_t i) {
    return QPointF(static_cast<double>(i) * scale_,
                   middle - static_cast<double>(std::clamp(values[i], -1.0F, 1.0F)) * middle);
  };
  field.clear();
  for (std::size_t i = 1; i < values.size(); ++i) field.add_line(point(i - 1), point(i));
}

}  // namespace tandem

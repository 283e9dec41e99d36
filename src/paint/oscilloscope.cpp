#include "paint/oscilloscope.h"

#include <QPolygonF>
#include <algorithm>
#include <cmath>

#include "paint/ink.h"
#include "paint/palette.h"

namespace tandem {

namespace {

double middle(const QRectF& box) { return box.top() + box.height() / 2; }

QPolygonF trace_line(const QRectF& box, std::span<const float> values) {
  QPolygonF line;
  line.reserve(static_cast<qsizetype>(values.size()));
  double x = box.left();
  for (const float value : values) {
    line.append({x, middle(box) - static_cast<double>(std::clamp(value, -1.0F, 1.0F)) * box.height() / 2});
    x += 1;
  }
  return line;
}

void stroke_trace(QPainter& painter, const QPolygonF& line, const QColor& colour, double width) {
  painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(line);
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

void paint_traces(QPainter& painter, const QRectF& box, const ScopePicture& picture) {
  painter.save();
  painter.setClipRect(box, Qt::IntersectClip);
  painter.setBrush(Qt::NoBrush);
  stroke_trace(painter, trace_line(box, picture.right), faded(palette::kAqua, .75), .9);
  const QPolygonF left = trace_line(box, picture.left);
  stroke_trace(painter, left, faded(palette::kLime, .10), 4.5);
  stroke_trace(painter, left, faded(palette::kLime, .22), 2.4);
  stroke_trace(painter, left, QColor::fromRgb(palette::kLime), 1.2);
  painter.restore();
}

}  // namespace tandem

#include "paint/strokes/ink.h"

#include <QLinearGradient>
#include <QRadialGradient>
#include <cmath>
#include <numbers>

#include "paint/strokes/palette.h"

namespace tandem {

namespace {

void add_stops(QGradient& gradient, Stops stops) {
  for (const Stop& stop : stops) gradient.setColorAt(stop.at, faded(stop.colour, stop.opacity));
}

// Whole numbers, halves upwards on both sides of 0: what is drawn as a part of a picture, from another origin, stands
// where it stands in the whole.
double nearest(double at) { return std::floor(at + .5); }

}  // namespace

void set_up(QPainter& painter, double scale) {
  painter.scale(scale, scale);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
}

double device_scale(const QPainter& painter) { return painter.deviceTransform().m11(); }

QRectF snapped(const QPainter& painter, const QRectF& box) {
  const QTransform to_device = painter.deviceTransform();
  const QRectF device = to_device.mapRect(box);
  const double left = nearest(device.left());
  const double top = nearest(device.top());
  const double right = std::max(left + 1, nearest(device.right()));
  const double bottom = std::max(top + 1, nearest(device.bottom()));
  return to_device.inverted().mapRect(QRectF(left, top, right - left, bottom - top));
}

DevicePixels::DevicePixels(QPainter& painter) : painter_(painter), logical_(painter.deviceTransform()) {
  painter.save();
  // The device transform also holds the widget's offset and the pixel ratio, which have to be undone as well.
  painter.setWorldTransform((painter.worldTransform().inverted() * logical_).inverted());
}

DevicePixels::~DevicePixels() { painter_.restore(); }

QPoint DevicePixels::at(const QPointF& point) const {
  const QPointF device = logical_.map(point);
  return {static_cast<int>(nearest(device.x())), static_cast<int>(nearest(device.y()))};
}

QColor faded(QRgb colour, double opacity) {
  QColor result = QColor::fromRgb(colour);
  result.setAlphaF(static_cast<float>(opacity));
  return result;
}

QRgb mixed(QRgb from, QRgb to, double share) {
  const auto part = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
  return qRgb(part(qRed(from), qRed(to)), part(qGreen(from), qGreen(to)), part(qBlue(from), qBlue(to)));
}

QBrush downward(const QRectF& box, Stops stops) {
  QLinearGradient gradient(box.topLeft(), box.bottomLeft());
  add_stops(gradient, stops);
  return gradient;
}

QBrush rightward(const QRectF& box, Stops stops) {
  QLinearGradient gradient(box.topLeft(), box.topRight());
  add_stops(gradient, stops);
  return gradient;
}

QBrush glow(const QRectF& box, double cx, double cy, double radius, Stops stops) {
  QRadialGradient gradient(cx, cy, radius);
  add_stops(gradient, stops);
  QBrush brush(gradient);
  brush.setTransform(QTransform(box.width(), 0, 0, box.height(), box.left(), box.top()));
  return brush;
}

void fill_box(QPainter& painter, const QRectF& box, const QBrush& brush, double radius) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(brush);
  if (radius > 0) {
    painter.drawRoundedRect(box, radius, radius);
  } else {
    painter.drawRect(box);
  }
}

void frame_box(QPainter& painter, const QRectF& box, const QColor& colour, double width, double radius) {
  painter.setPen(QPen(colour, width));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(box, radius, radius);
}

void fill_disc(QPainter& painter, const QPointF& centre, double radius, const QBrush& brush) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(brush);
  painter.drawEllipse(centre, radius, radius);
}

void draw_ring(QPainter& painter, const QPointF& centre, double radius, const QColor& colour, double width) {
  painter.setPen(QPen(colour, width));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(centre, radius, radius);
}

// As a filled outline: Qt's own lines lose their ends where a clip cuts them, so that a part painted again by itself
// would not be what it is in the whole.
void draw_line(QPainter& painter, const QPointF& from, const QPointF& to, const QColor& colour, double width,
               Qt::PenCapStyle cap) {
  QPainterPathStroker outline(QPen(colour, width, Qt::SolidLine, cap));
  outline.setCurveThreshold(.05);
  QPainterPath line(from);
  line.lineTo(to);
  fill_path(painter, outline.createStroke(line), colour);
}

void fill_path(QPainter& painter, const QPainterPath& path, const QBrush& brush) { painter.fillPath(path, brush); }

void stroke_path(QPainter& painter, const QPainterPath& path, const QColor& colour, double width, Qt::PenCapStyle cap,
                 Qt::PenJoinStyle join) {
  painter.strokePath(path, QPen(colour, width, Qt::SolidLine, cap, join));
}

void dot_path(QPainter& painter, const QPainterPath& path, const QColor& colour, double on, double off) {
  QPen pen(colour, 1, Qt::CustomDashLine, Qt::FlatCap);
  pen.setDashPattern({on, off});
  painter.strokePath(path, pen);
}

QPainterPath polygon_path(std::initializer_list<QPointF> points) {
  QPainterPath path(*points.begin());
  for (const QPointF* point = points.begin() + 1; point != points.end(); ++point) path.lineTo(*point);
  path.closeSubpath();
  return path;
}

QPointF on_circle(const QPointF& centre, double radius, double degrees) {
  const double angle = degrees * std::numbers::pi / 180;
  return centre + QPointF(radius * std::sin(angle), -radius * std::cos(angle));
}

void paint_focus_ring(QPainter& painter, const QRectF& box, double radius) {
  const QRectF ring = box.adjusted(-1.5, -1.5, 1.5, 1.5);
  frame_box(painter, ring, faded(palette::kBlack, .55), 3, radius + 1);
  frame_box(painter, ring, QColor::fromRgb(palette::kFocus), 1.5, radius + 1);
}

}  // namespace tandem

// The few strokes that all painters are made of. Lengths are px at 100 %; the painter's transform carries the scale.
// UI thread. A painter must be prepared by set_up() first.
#pragma once

#include <QBrush>
#include <QPainter>
#include <QPainterPath>
#include <initializer_list>

namespace tandem {

/// Scales the painter (1 = 100 %) and sets the render hints that every painting function here expects.
void set_up(QPainter& painter, double scale);

/// Device pixels per px at 100 % under the painter's present transform.
double device_scale(const QPainter& painter);

/// The box moved and sized to whole device pixels, at least one device pixel each way.
QRectF snapped(const QPainter& painter, const QRectF& box);

/// While it lives the painter draws in whole device pixels; at() gives the device pixel nearest to a point, of two
/// equally near ones the right and lower one.
class DevicePixels {
 public:
  explicit DevicePixels(QPainter& painter);
  ~DevicePixels();
  DevicePixels(const DevicePixels&) = delete;
  DevicePixels& operator=(const DevicePixels&) = delete;
  [[nodiscard]] QPoint at(const QPointF& point) const;

 private:
  QPainter& painter_;
  QTransform logical_;
};

QColor faded(QRgb colour, double opacity);
QRgb mixed(QRgb from, QRgb to, double share);

struct Stop {
  double at;
  QRgb colour;
  double opacity = 1;
};
using Stops = std::initializer_list<Stop>;

QBrush downward(const QRectF& box, Stops stops);
QBrush rightward(const QRectF& box, Stops stops);
/// A glow with centre (cx, cy) and radius in fractions of the box.
QBrush glow(const QRectF& box, double cx, double cy, double radius, Stops stops);

void fill_box(QPainter& painter, const QRectF& box, const QBrush& brush, double radius = 0);
void frame_box(QPainter& painter, const QRectF& box, const QColor& colour, double width, double radius);
void fill_disc(QPainter& painter, const QPointF& centre, double radius, const QBrush& brush);
void draw_ring(QPainter& painter, const QPointF& centre, double radius, const QColor& colour, double width);
void draw_line(QPainter& painter, const QPointF& from, const QPointF& to, const QColor& colour, double width,
               Qt::PenCapStyle cap = Qt::FlatCap);
void fill_path(QPainter& painter, const QPainterPath& path, const QBrush& brush);
void stroke_path(QPainter& painter, const QPainterPath& path, const QColor& colour, double width,
                 Qt::PenCapStyle cap = Qt::FlatCap, Qt::PenJoinStyle join = Qt::RoundJoin);
/// A 1-px dotted stroke, `on` px drawn and `off` px left out.
void dot_path(QPainter& painter, const QPainterPath& path, const QColor& colour, double on, double off);

QPainterPath polygon_path(std::initializer_list<QPointF> points);

/// The point at a radius and an angle, degrees clockwise from 12 o'clock.
QPointF on_circle(const QPointF& centre, double radius, double degrees);

/// The ring of keyboard focus, 1.5 px outside the box.
void paint_focus_ring(QPainter& painter, const QRectF& box, double radius = 4);

}  // namespace tandem

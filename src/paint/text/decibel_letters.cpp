#include "paint/text/decibel_letters.h"

#include <QPainterPath>

#include "paint/strokes/ink.h"

namespace tandem {

namespace {

constexpr double kStem = 2.1;  // px; a level stroke is 1.6

QPainterPath box_path(const QRectF& box) {
  QPainterPath path;
  path.addRect(box);
  return path;
}

QPainterPath round_path(const QRectF& box, double across, double down) {
  QPainterPath path;
  path.addRoundedRect(box, across, down);
  return path;
}

/// A box whose right end is half a circle.
QPainterPath bowl_path(const QRectF& box) {
  const double height = box.height();
  QPainterPath path(box.topLeft());
  path.arcTo(QRectF(box.right() - height, box.top(), height, height), 90, -180);
  path.lineTo(box.bottomLeft());
  path.closeSubpath();
  return path;
}

/// `box` has its left, top and bottom on whole device pixels, as the stem's right side is.
QPainterPath capital_b(const QRectF& box, double stem) {
  const double waist = box.top() + .5 * box.height();
  const QPainterPath upper = bowl_path({box.left(), box.top(), box.width() - .5, waist + .4 - box.top()});
  const QPainterPath lower = bowl_path({box.left(), waist - .5, box.width(), box.bottom() - waist + .5});
  const double inside = box.left() + stem;
  const QPainterPath upper_hole =
      bowl_path({inside, box.top() + 1.6, box.width() - stem - 2.6, waist - box.top() - 2.5});
  const QPainterPath lower_hole = bowl_path({inside, waist + .9, box.width() - stem - 2.2, box.bottom() - waist - 2.5});
  return upper.united(lower).subtracted(upper_hole).subtracted(lower_hole);
}

QPainterPath small_d(const QRectF& bowl, const QRectF& stem) {
  const QPainterPath hole = round_path(bowl.adjusted(2, 1.5, -2, -1.4), 1.3, 1.6);
  return round_path(bowl, 3, 3).subtracted(hole).united(box_path(stem));
}

}  // namespace

void draw_decibel_letters(QPainter& painter, const QPointF& at, QRgb colour) {
  const QRectF capital = snapped(painter, {at.x() - 7.8, at.y() - 8.6, 7.3, 8.6});
  const double stem = snapped(painter, {capital.left(), capital.top(), kStem, 1}).width();
  const double top = capital.top() - .6;
  QRectF small_stem = snapped(painter, {at.x() - 11.8, top, kStem, capital.bottom() - top});
  small_stem.setWidth(stem);
  const QRectF bowl(QPointF(at.x() - 16.5, capital.bottom() - 6.6), QPointF(small_stem.right(), capital.bottom() + .2));
  const QBrush brush(QColor::fromRgb(colour));
  fill_path(painter, capital_b(capital, stem), brush);
  fill_path(painter, small_d(bowl, small_stem), brush);
}

}  // namespace tandem

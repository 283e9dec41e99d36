#include "paint/surfaces/panels.h"

#include <QLinearGradient>
#include <algorithm>

#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/surfaces/faceplate.h"

namespace tandem {

using palette::kBlack;
using palette::kWhite;

namespace {

void paint_sheen(QPainter& painter, const QRectF& box) {
  const double reach = std::min(box.width() * .42, 130.0);
  const QRectF glass = box.adjusted(2, 2, -2, -2);
  const QPainterPath wedge = polygon_path({glass.topLeft(),
                                           {glass.left() + reach, glass.top()},
                                           {glass.left() + reach - box.height() * .5, glass.bottom()},
                                           glass.bottomLeft()});
  // The gradient runs along (1, 1/4) of the wedge's own box.
  QLinearGradient sheen(0, 0, 1, .25);
  sheen.setColorAt(0, faded(kWhite, .05));
  sheen.setColorAt(.75, faded(kWhite, .015));
  sheen.setColorAt(1, faded(kWhite, 0));
  QBrush brush(sheen);
  brush.setTransform(QTransform(reach, 0, 0, glass.height(), glass.left(), glass.top()));
  fill_path(painter, wedge, brush);
}

}  // namespace

void paint_glass(QPainter& painter, const QRectF& box) {
  fill_box(painter, box.adjusted(0, 0, 0, 1), faded(kWhite, .16), 3);
  fill_box(painter, box, downward(box, {{0, kBlack}, {.5, 0xFF15181B}, {1, 0xFF343A40}}), 3);
  const QRectF glass = box.adjusted(2, 2, -2, -2);
  fill_box(painter, glass,
           downward(glass, {{0, palette::kGlassTop}, {.45, palette::kGlassMiddle}, {1, palette::kGlassBottom}}), 1.5);
}

void paint_glass_shine(QPainter& painter, const QRectF& box) {
  const QRectF glass = box.adjusted(2, 2, -2, -2);
  const double left = glass.left();
  const double width = glass.width();
  painter.save();
  painter.setClipRect(glass, Qt::IntersectClip);
  fill_box(painter, {left, glass.top(), width, 2}, faded(kBlack, .45));
  fill_box(painter, {left, glass.top() + 2, width, 1}, faded(kBlack, .2));
  const QRectF upper(left, glass.top(), width, glass.height() * .46);
  fill_box(painter, upper, downward(upper, {{0, kWhite, .06}, {1, kWhite, .012}}));
  paint_sheen(painter, box);
  fill_box(painter, {left, glass.bottom() - 1, width, 1}, faded(kWhite, .06));
  painter.restore();
}

void paint_glass_hover(QPainter& painter, const QRectF& box, double hover) {
  if (hover > 0) frame_box(painter, box.adjusted(1.5, 1.5, -1.5, -1.5), faded(palette::kFocus, .35 * hover), 1, 2);
}

void paint_bevel(QPainter& painter, const QRectF& box) {
  fill_box(painter, box.adjusted(0, 0, 0, 1), faded(kWhite, .13), 3);
  fill_box(painter, box, QColor::fromRgb(0xFF0A0B0D), 3);
  const QRectF inside = box.adjusted(1, 1, -1, -1);
  fill_box(painter, inside,
           downward(inside, {{0, palette::kRecessTop}, {.08, palette::kRecessUpper}, {1, palette::kRecessBottom}}),
           2.5);
  painter.setOpacity(.6);
  fill_box(painter, inside, brushed_texture(painter), 2.5);
  painter.setOpacity(1);
  fill_box(painter, {box.left() + 2, box.top() + 1, box.width() - 4, 1}, faded(kBlack, .55));
  fill_box(painter, {box.left() + 2, box.top() + 2, box.width() - 4, 1}, faded(kBlack, .2));
}

void paint_well(QPainter& painter, const QRectF& box, double radius) {
  fill_box(painter, box.adjusted(0, 0, 0, 1), faded(kWhite, .14), radius);
  fill_box(painter, box, QColor::fromRgb(palette::kWellRim), radius);
  const QRectF inside = box.adjusted(1, 1, -1, -1);
  fill_box(painter, inside, downward(inside, {{0, palette::kWellTop}, {1, palette::kWellBottom}}),
           std::max(0.0, radius - .5));
}

void paint_cut_across(QPainter& painter, const QPointF& from, double length) {
  fill_box(painter, snapped(painter, {from.x(), from.y(), length, 1}), faded(kBlack, .5));
  fill_box(painter, snapped(painter, {from.x(), from.y() + 1, length, 1}), faded(kWhite, .09));
}

void paint_cut_down(QPainter& painter, const QPointF& from, double length) {
  fill_box(painter, snapped(painter, {from.x(), from.y(), 1, length}), faded(kBlack, .5));
  fill_box(painter, snapped(painter, {from.x() + 1, from.y(), 1, length}), faded(kWhite, .09));
}

}  // namespace tandem

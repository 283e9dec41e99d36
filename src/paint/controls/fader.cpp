#include "paint/controls/fader.h"

#include <algorithm>

#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"

namespace tandem {

using palette::kBlack;
using palette::kCap;
using palette::kWhite;

namespace {

double y_of(const QRectF& box, const FaderState& look, double value) {
  const double travel = box.height() - look.cap.height();
  return box.top() + look.cap.height() / 2 + travel * (look.maximum - value) / (look.maximum - look.minimum);
}

void paint_fader_groove(QPainter& painter, const QRectF& box) {
  const double x = box.center().x();
  const double top = box.top();
  const double height = box.height();
  fill_box(painter, {x - 2, top + 2, 5, height - 3}, faded(kWhite, .10), 2);
  fill_box(painter, {x - 2.5, top + 1.5, 5, height - 3}, QColor::fromRgb(kBlack), 2.2);
  fill_box(painter, {x - 1.5, top + 2.5, 3, height - 5}, QColor::fromRgb(0xFF0F1113), 1.2);
}

void paint_lit_line(QPainter& painter, double x, double from, double to, QRgb colour) {
  const double top = std::min(from, to);
  const double height = std::max(from, to) - top;
  fill_box(painter, {x - 2.5, top, 5, height}, faded(colour, .16));
  fill_box(painter, {x - 1, top, 2, height}, faded(colour, .95));
}

void paint_cap(QPainter& painter, const QRectF& cap, QRgb line, double hover) {
  fill_box(painter, {cap.left() - .5, cap.top() + 2, cap.width() + 1, cap.height() + .5}, faded(kBlack, .28), 2);
  fill_box(painter, {cap.left() - .5, cap.top() + 1, cap.width() + 1, cap.height()}, faded(kBlack, .4), 2);
  fill_box(painter, cap,
           downward(cap, {{0, kCap[0]},
                          {.16, kCap[1]},
                          {.44, kCap[2]},
                          {.5, 0xFF24272A},
                          {.56, 0xFF6C737A},
                          {.84, kCap[2]},
                          {1, kCap[3]}}),
           1.6);
  fill_box(painter, {cap.left() + 1, cap.top(), cap.width() - 2, .8}, faded(kWhite, .55));
  fill_box(painter, {cap.left() + 1, cap.center().y() - .75, cap.width() - 2, 1.5}, QColor::fromRgb(line));
  if (hover > 0) fill_box(painter, cap, faded(kWhite, .12 * hover), 1.6);
}

}  // namespace

double fader_y(const QRectF& box, const FaderState& look) { return y_of(box, look, look.value); }

double fader_value(const QRectF& box, const FaderState& look, double y) {
  const double travel = box.height() - look.cap.height();
  return look.maximum - (y - box.top() - look.cap.height() / 2) * (look.maximum - look.minimum) / travel;
}

QRectF fader_cap(const QRectF& box, const FaderState& look) {
  const QPointF middle(box.center().x(), fader_y(box, look));
  return {middle - QPointF(look.cap.width() / 2, look.cap.height() / 2), look.cap};
}

void paint_fader(QPainter& painter, const QRectF& box, const FaderState& look) {
  const double x = box.center().x();
  const double y = fader_y(box, look);
  const bool at_zero = look.value == 0;
  paint_fader_groove(painter, box);
  if (!at_zero) paint_lit_line(painter, x, y_of(box, look, 0), y, look.lit_colour);
  const QRectF cap = fader_cap(box, look);
  paint_cap(painter, cap, at_zero ? kWhite : look.lit_colour, look.interaction.hover);
  if (look.interaction.focused) paint_focus_ring(painter, cap, 2);
}

}  // namespace tandem

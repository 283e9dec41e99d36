#include <algorithm>

#include "paint/controls/fader.h"
#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/text/caption.h"

namespace tandem {

using palette::kBlack;
using palette::kCap;
using palette::kWhite;

namespace {

constexpr QRgb kGroove = 0xFF0F1113;

double place_x(const QRectF& box, double share) {
  return box.left() + kSliderCapWidth / 2 + (box.width() - kSliderCapWidth) * std::clamp(share, 0.0, 1.0);
}

void paint_slider_groove(QPainter& painter, const QRectF& box) {
  const double y = box.center().y();
  fill_box(painter, {box.left() + 1, y - 2, box.width() - 2, 5}, faded(kWhite, .10), 2.5);
  fill_box(painter, {box.left() + 1, y - 2.5, box.width() - 2, 5}, QColor::fromRgb(kBlack), 2.5);
  fill_box(painter, {box.left() + 2, y - 1.5, box.width() - 4, 3}, QColor::fromRgb(kGroove), 1.5);
}

// The groove is deeper while two songs sound, and the other song has a rail of its own in it, lit as far as its place.
void paint_overlapping(QPainter& painter, const QRectF& box, double share) {
  const double y = box.center().y();
  const double left = box.left();
  const double width = box.width();
  const double end = place_x(box, share);
  fill_box(painter, {left + 1, y + 1, width - 2, 5.5}, faded(kWhite, .10), 2);
  fill_box(painter, {left + 1, y, width - 2, 5.5}, QColor::fromRgb(kBlack), 2);
  fill_box(painter, {left + 1, y - 2, width - 2, 4}, QColor::fromRgb(kBlack));
  fill_box(painter, {left + 2, y - 1.5, width - 4, 6}, QColor::fromRgb(kGroove), 1.5);
  fill_box(painter, {left + 3, y + 2.5, width - 6, 1.5}, faded(palette::kOrange, .24), .75);
  fill_box(painter, {left + 3, y + 1.25, end - left - 3, 4}, faded(palette::kOrange, .16), 2);
  fill_box(painter, {left + 3, y + 2.5, end - left - 3, 1.5}, faded(palette::kOrange, .95), .75);
  fill_disc(painter, {end, y + 3.25}, 3.4, faded(palette::kOrange, .22));
  fill_disc(painter, {end, y + 3.25}, 1.9, QColor::fromRgb(palette::kOverlapDot));
}

void paint_played(QPainter& painter, const QRectF& box, double cap_x) {
  const double y = box.center().y();
  const double left = box.left() + 3;
  fill_box(painter, {left, y - 2.5, cap_x - left, 5}, faded(palette::kLime, .14), 2);
  fill_box(painter, {left, y - 1, cap_x - left, 2}, faded(palette::kLime, .95), 1);
}

void paint_next_start(QPainter& painter, const QRectF& box, double share, bool lit) {
  const QPointF middle(place_x(box, share), box.center().y());
  const QRgb colour = lit ? palette::kOrange : palette::kMixMark;
  const QPainterPath flag =
      polygon_path({middle + QPointF(-2.6, -7), middle + QPointF(2.6, -7), middle + QPointF(0, -2.8)});
  if (lit) stroke_path(painter, flag, faded(colour, .25), 3);
  fill_path(painter, flag, QColor::fromRgb(colour));
  fill_box(painter, snapped(painter, {middle.x() - .5, middle.y() - 2.5, 1, 5}), faded(colour, .9));
}

// The lead, from the mark to the end of the groove. The cap stands in it as long as two songs sound, and with a long
// song is wider than it: the line lies over the cap's upper edge.
void paint_lead(QPainter& painter, const QRectF& box, double from_share) {
  const double from = place_x(box, from_share);
  const double width = box.right() - 3 - from;
  const double y = box.top() - .5;
  fill_box(painter, {from - 1, y - 1.5, width + 2, 4}, faded(palette::kOrange, .22), 2);
  fill_box(painter, {from, y, width, 1.2}, faded(palette::kOrange, .95), .6);
}

void paint_shadow(QPainter& painter, const QRectF& cap) {
  fill_box(painter, {cap.left() - .5, cap.top() + 1.5, cap.width() + 1, cap.height() + .5}, faded(kBlack, .28), 2);
  fill_box(painter, {cap.left() - .5, cap.top() + .5, cap.width() + 1, cap.height() + .5}, faded(kBlack, .4), 2);
}

// Lit from below while two songs sound, its line in the colour of the incoming one.
void paint_cap_light(QPainter& painter, const QRectF& cap) {
  frame_box(painter, cap.adjusted(-1.5, -1.5, 1.5, 1.5), faded(palette::kOrange, .16), 3, 3);
  frame_box(painter, cap.adjusted(-.5, -.5, .5, .5), faded(palette::kOrange, .5), 1, 2.2);
}

void paint_slider_cap(QPainter& painter, const QRectF& cap, double hover, bool overlapping) {
  paint_shadow(painter, cap);
  if (overlapping) paint_cap_light(painter, cap);
  fill_box(painter, cap, downward(cap, {{0, kCap[0]}, {.18, kCap[1]}, {.7, kCap[2]}, {1, kCap[3]}}), 1.8);
  fill_box(painter, {cap.left() + 1, cap.top(), cap.width() - 2, .8}, faded(kWhite, .55));
  const double x = cap.center().x();
  for (const double ridge : {-5.5, -3.5, 3.5, 5.5}) {
    fill_box(painter, {x + ridge - .4, cap.top() + 2.5, .8, cap.height() - 5}, faded(kBlack, .35));
  }
  const QRgb line = overlapping ? palette::kOrange : kWhite;
  fill_box(painter, {x - .75, cap.top() + 1, 1.5, cap.height() - 2}, QColor::fromRgb(line));
  if (hover > 0) fill_box(painter, cap, faded(kWhite, .12 * hover), 1.8);
}

void paint_slot(QPainter& painter, const QRectF& box) {
  fill_box(painter, box.adjusted(0, 0, 0, 1), faded(kWhite, .16), 2.5);
  fill_box(painter, box, QColor::fromRgb(palette::kWellRim), 2.5);
  const QRectF inside = box.adjusted(1, 1, -1, -1);
  fill_box(painter, inside, downward(inside, {{0, 0xFF0B0D0E}, {1, 0xFF1A1D20}}), 2);
}

void paint_switch_cap(QPainter& painter, const QRectF& box, double place, double hover) {
  const double height = (box.height() - 2) / 2;
  const double top = box.top() + 1 + height * place;
  fill_box(painter, {box.left() + 1, top + .5, box.width() - 2, height}, faded(kBlack, .5), 1.6);
  const QRectF cap(box.left() + 1.5, top + .5, box.width() - 3, height - 1);
  fill_box(painter, cap, downward(cap, {{0, kCap[0]}, {.2, kCap[1]}, {1, kCap[2]}}), 1.5);
  for (int i = 0; i < 3; ++i) {
    const double y = top + height / 2 - 3 + i * 2.5;
    fill_box(painter, {box.left() + 3.5, y, box.width() - 7, 1}, faded(0xFF24272A, .75));
    fill_box(painter, {box.left() + 3.5, y + 1, box.width() - 7, .6}, faded(kWhite, .35));
  }
  if (hover > 0) fill_box(painter, cap, faded(kWhite, .12 * hover), 1.5);
}

}  // namespace

void paint_slider(QPainter& painter, const QRectF& box, const SliderState& look) {
  const double x = place_x(box, look.share);
  const QRectF cap(x - kSliderCapWidth / 2, box.top() + .5, kSliderCapWidth, box.height() - 1);
  paint_slider_groove(painter, box);
  if (look.overlapping) paint_overlapping(painter, box, *look.overlapping);
  paint_played(painter, box, x);
  if (look.next_start) paint_next_start(painter, box, *look.next_start, look.overlapping.has_value());
  paint_slider_cap(painter, cap, look.interaction.hover, look.overlapping.has_value());
  if (look.next_start && look.overlapping) paint_lead(painter, box, *look.next_start);
  if (look.interaction.focused) paint_focus_ring(painter, cap, 2);
}

void paint_slide_switch(QPainter& painter, const QRectF& box, const SlideSwitchState& look) {
  paint_slot(painter, box);
  paint_switch_cap(painter, box, look.cap, look.interaction.hover);
  if (look.interaction.focused) paint_focus_ring(painter, box, 2.5);
  const double baselines[] = {12, 27.5};
  for (std::size_t i = 0; i < 2; ++i) {
    const bool chosen = look.position == static_cast<int>(i);
    const CaptionStyle style{.colour = chosen ? kWhite : palette::kLegendUnchosen, .bold = chosen};
    draw_caption(painter, {box.left() + 16, box.top() + baselines[i]}, look.captions[i], style);
  }
}

}  // namespace tandem

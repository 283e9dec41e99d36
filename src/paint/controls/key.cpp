#include "paint/controls/key.h"

#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/text/caption.h"

namespace tandem {

using palette::kBlack;
using palette::kWhite;

namespace {

constexpr double kFrame = 3;

void paint_frame(QPainter& painter, const QRectF& box, const KeyLook& look) {
  fill_box(painter, box.adjusted(0, 0, 0, 1), faded(kWhite, .13), 4);
  fill_box(painter, box, QColor::fromRgb(palette::kSlot), 4);
  if (look.lit && look.touch.enabled) {
    frame_box(painter, box.adjusted(.5, .5, -.5, -.5), faded(look.back_colour, .35), 2, 4);
  }
  const QRectF frame = box.adjusted(1, 1, -1, -1);
  fill_box(painter, frame, QColor::fromRgb(look.back_colour), 3.2);
  fill_box(painter, frame, downward(frame, {{0, kWhite, .22}, {.25, kWhite, 0}, {.8, kBlack, 0}, {1, kBlack, .28}}),
           3.2);
}

QBrush tile_brush(const QRectF& tile, const Touch& touch) {
  if (!touch.enabled) return downward(tile, {{0, palette::kTileFlatTop}, {1, palette::kTileFlatBottom}});
  if (touch.pressed) return downward(tile, {{0, 0xFF131517}, {1, 0xFF202429}});
  return downward(tile, {{0, mixed(palette::kTileTop, palette::kTileHoverTop, touch.hover)},
                         {1, mixed(palette::kTileBottom, palette::kTileHoverBottom, touch.hover)}});
}

void paint_tile(QPainter& painter, const QRectF& tile, const KeyLook& look) {
  fill_box(painter, tile.adjusted(-.5, -.5, .5, .5), faded(kBlack, .65), 2.2);
  fill_box(painter, tile, tile_brush(tile, look.touch), 2);
  if (look.touch.enabled) {
    const double strength = look.lit ? .30 : .13;
    fill_box(painter, tile, glow(tile, .5, 1.05, .75, {{0, look.back_colour, strength}, {1, look.back_colour, 0}}), 2);
  }
  if (look.touch.pressed && look.touch.enabled) {
    fill_box(painter, {tile.left(), tile.top(), tile.width(), 1.5}, faded(kBlack, .5), 1);
  } else {
    const double shine = look.touch.enabled ? .16 + .12 * look.touch.hover : .16;
    fill_box(painter, {tile.left() + 1, tile.top() + .5, tile.width() - 2, .75}, faded(kWhite, shine));
  }
}

QRgb caption_colour(const KeyLook& look) {
  if (!look.touch.enabled) return palette::kDisabledCaption;
  return look.lit ? kWhite : palette::kLegend;
}

}  // namespace

void paint_key(QPainter& painter, const QRectF& box, const KeyLook& look) {
  const double down = look.touch.pressed && look.touch.enabled ? 1 : 0;
  paint_frame(painter, box, look);
  paint_tile(painter, box.adjusted(kFrame, kFrame + down * .5, -kFrame, -kFrame), look);
  const QPointF centre = box.center() + QPointF(0, down);
  if (look.face != Face::None) paint_face(painter, centre, look.face, look.touch.enabled);
  if (!look.caption.isEmpty()) {
    draw_caption(painter, centre + QPointF(0, 3.6), look.caption, {.colour = caption_colour(look), .bold = look.bold},
                 Anchor::Middle);
  }
  if (look.touch.focused) paint_focus_ring(painter, box);
}

void paint_stud(QPainter& painter, const QRectF& box, const Touch& touch) {
  const QPointF centre = box.center();
  const double radius = box.width() / 2 - 1;
  const QRectF disc = box.adjusted(1, 1, -1, -1);
  fill_disc(painter, centre + QPointF(0, 1), radius + 1, faded(kWhite, .16));
  fill_disc(painter, centre, radius + 1, QColor::fromRgb(palette::kWellRim));
  if (!touch.pressed) fill_disc(painter, centre + QPointF(0, .6), radius + .6, faded(kBlack, .4));
  fill_disc(painter, centre, radius, QColor::fromRgb(touch.pressed ? 0xFF808080 : palette::kSilver));
  fill_disc(painter, centre, radius,
            touch.pressed ? downward(disc, {{0, kBlack, .35}, {.4, kBlack, 0}, {.6, kWhite, 0}, {1, kWhite, .12}})
                          : downward(disc, {{0, kWhite, .75}, {.35, kWhite, 0}, {.62, kBlack, 0}, {1, kBlack, .42}}));
  draw_ring(painter, centre, radius * .55, faded(kBlack, .22), .7);
  if (touch.hover > 0 && !touch.pressed) fill_disc(painter, centre, radius, faded(kWhite, .25 * touch.hover));
  if (touch.focused) draw_ring(painter, centre, radius + 2.5, QColor::fromRgb(palette::kFocus), 1.5);
}

}  // namespace tandem

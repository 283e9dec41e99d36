#include "paint/controls/key.h"

#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/text/caption.h"

namespace tandem {

using palette::kBlack;
using palette::kWhite;

namespace {

constexpr double kFrame = 3;

void paint_frame(QPainter& painter, const QRectF& box, const KeyState& look) {
  fill_box(painter, box.adjusted(0, 0, 0, 1), faded(kWhite, .13), 4);
  fill_box(painter, box, QColor::fromRgb(palette::kSlot), 4);
  if (look.lit && look.interaction.enabled) {
    frame_box(painter, box.adjusted(.5, .5, -.5, -.5), faded(look.back_colour, .35), 2, 4);
  }
  const QRectF frame = box.adjusted(1, 1, -1, -1);
  fill_box(painter, frame, QColor::fromRgb(look.back_colour), 3.2);
  fill_box(painter, frame, downward(frame, {{0, kWhite, .22}, {.25, kWhite, 0}, {.8, kBlack, 0}, {1, kBlack, .28}}),
           3.2);
}

QBrush tile_brush(const QRectF& tile, const InteractionState& interaction) {
  if (!interaction.enabled) return downward(tile, {{0, palette::kTileFlatTop}, {1, palette::kTileFlatBottom}});
  if (interaction.pressed) return downward(tile, {{0, 0xFF131517}, {1, 0xFF202429}});
  return downward(tile, {{0, mixed(palette::kTileTop, palette::kTileHoverTop, interaction.hover)},
                         {1, mixed(palette::kTileBottom, palette::kTileHoverBottom, interaction.hover)}});
}

void paint_tile(QPainter& painter, const QRectF& tile, const KeyState& look) {
  fill_box(painter, tile.adjusted(-.5, -.5, .5, .5), faded(kBlack, .65), 2.2);
  fill_box(painter, tile, tile_brush(tile, look.interaction), 2);
  if (look.interaction.enabled) {
    const double strength = look.lit ? .30 : .13;
    fill_box(painter, tile, glow(tile, .5, 1.05, .75, {{0, look.back_colour, strength}, {1, look.back_colour, 0}}), 2);
  }
  if (look.interaction.pressed && look.interaction.enabled) {
    fill_box(painter, {tile.left(), tile.top(), tile.width(), 1.5}, faded(kBlack, .5), 1);
  } else {
    // The tile's edge shows that the pointer is on the key, since a lighter tile would take contrast from the caption.
    const double hover = look.interaction.enabled ? look.interaction.hover : 0;
    if (hover > 0) frame_box(painter, tile.adjusted(.5, .5, -.5, -.5), faded(kWhite, .24 * hover), 1, 1.8);
    const double shine = .16 + .24 * hover;
    fill_box(painter, {tile.left() + 1, tile.top() + .5, tile.width() - 2, .75}, faded(kWhite, shine));
  }
}

QRgb caption_colour(const KeyState& look) {
  if (!look.interaction.enabled) return palette::kDisabledCaption;
  return look.lit ? kWhite : palette::kLegend;
}

}  // namespace

void paint_key(QPainter& painter, const QRectF& box, const KeyState& look) {
  const double down = look.interaction.pressed && look.interaction.enabled ? 1 : 0;
  paint_frame(painter, box, look);
  paint_tile(painter, box.adjusted(kFrame, kFrame + down * .5, -kFrame, -kFrame), look);
  const QPointF centre = box.center() + QPointF(0, down);
  if (look.icon != Icon::None) paint_icon(painter, centre, look.icon, look.interaction.enabled);
  if (!look.caption.isEmpty()) {
    draw_caption(painter, centre + QPointF(0, 3.6), look.caption, {.colour = caption_colour(look), .bold = look.bold},
                 Anchor::Middle);
  }
  if (look.interaction.focused) paint_focus_ring(painter, box);
}

void paint_stud(QPainter& painter, const QRectF& box, const InteractionState& interaction) {
  const QPointF centre = box.center();
  const double radius = box.width() / 2 - 1;
  const QRectF disc = box.adjusted(1, 1, -1, -1);
  fill_disc(painter, centre + QPointF(0, 1), radius + 1, faded(kWhite, .16));
  fill_disc(painter, centre, radius + 1, QColor::fromRgb(palette::kWellRim));
  if (!interaction.pressed) fill_disc(painter, centre + QPointF(0, .6), radius + .6, faded(kBlack, .4));
  fill_disc(painter, centre, radius, QColor::fromRgb(interaction.pressed ? 0xFF808080 : palette::kSilver));
  fill_disc(painter, centre, radius,
            interaction.pressed
                ? downward(disc, {{0, kBlack, .35}, {.4, kBlack, 0}, {.6, kWhite, 0}, {1, kWhite, .12}})
                : downward(disc, {{0, kWhite, .75}, {.35, kWhite, 0}, {.62, kBlack, 0}, {1, kBlack, .42}}));
  draw_ring(painter, centre, radius * .55, faded(kBlack, .22), .7);
  if (interaction.hover > 0 && !interaction.pressed)
    fill_disc(painter, centre, radius, faded(kWhite, .25 * interaction.hover));
  if (interaction.focused) draw_ring(painter, centre, radius + 2.5, QColor::fromRgb(palette::kFocus), 1.5);
}

}  // namespace tandem

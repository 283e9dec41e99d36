#include "paint/controls/lamps.h"

#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/text/caption.h"

namespace tandem {

using palette::kBlack;
using palette::kWhite;

namespace {

constexpr double kRadius = 4;

void paint_lamp_glow(QPainter& painter, const QPointF& centre, const LampState& look) {
  if (!look.breath) {
    fill_disc(painter, centre, kRadius + 4, faded(look.colour, .08));
    fill_disc(painter, centre, kRadius + 2.6, faded(look.colour, .16));
    return;
  }
  const double breath = *look.breath;
  fill_disc(painter, centre, kRadius + 4 + 2.2 * breath, faded(look.colour, .08 + .03 * breath));
  fill_disc(painter, centre, kRadius + 3.4 + 1.4 * breath, faded(look.colour, .14 * breath));
  fill_disc(painter, centre, kRadius + 2.6 + .5 * breath, faded(look.colour, .16 + .10 * breath));
}

void paint_round_lamp(QPainter& painter, const QPointF& centre, const LampState& look) {
  fill_disc(painter, centre + QPointF(0, .8), kRadius + 1.6, faded(kWhite, .15));
  fill_disc(painter, centre, kRadius + 1.6, QColor::fromRgb(0xFF040505));
  if (look.lit) paint_lamp_glow(painter, centre, look);
  fill_disc(painter, centre, kRadius, QColor::fromRgb(look.colour));
  if (look.lit && look.breath) {
    fill_disc(painter, centre, kRadius * .62, faded(palette::kBreathCore, .55 * *look.breath));
  }
  draw_ring(painter, centre, kRadius - .5, faded(kBlack, look.lit ? .14 : .34), 1);
  fill_disc(painter, centre - QPointF(kRadius * .34, kRadius * .4), kRadius * .34, faded(kWhite, look.lit ? .85 : .22));
  if (look.interaction.hover > 0)
    draw_ring(painter, centre, kRadius + 1.6, faded(kWhite, .5 * look.interaction.hover), 1);
  if (look.interaction.focused) draw_ring(painter, centre, kRadius + 3, QColor::fromRgb(palette::kFocus), 1.5);
}

void paint_lens(QPainter& painter, const QRectF& box, const LampState& look) {
  fill_box(painter, box.adjusted(-2, -2, 2, 3), faded(kWhite, .13), 3);
  fill_box(painter, box.adjusted(-2, -2, 2, 2), QColor::fromRgb(palette::kWellRim), 3);
  if (look.lit) {
    fill_box(painter, box.adjusted(-4, -4, 4, 4), faded(look.colour, .06), 6);
    fill_box(painter, box.adjusted(-2.5, -2.5, 2.5, 2.5), faded(look.colour, .16), 4);
  }
  fill_box(painter, box, QColor::fromRgb(look.colour), 1.8);
  const double light = look.lit ? .45 : .16;
  const double shade = look.lit ? .16 : .42;
  fill_box(painter, box, downward(box, {{0, kWhite, light}, {.42, kWhite, 0}, {.7, kBlack, 0}, {1, kBlack, shade}}),
           1.8);
}

}  // namespace

void paint_lead_lamp(QPainter& painter, const QRectF& box, const LampState& look) {
  const CaptionStyle style{.colour = look.lit ? kWhite : palette::kLegendUnchosen, .bold = look.lit};
  draw_caption(painter, {box.left() - 1, box.top() + 11.6}, look.caption, style, Anchor::End);
  paint_round_lamp(painter, box.center(), look);
}

void paint_lamp_button(QPainter& painter, const QRectF& box, const LampState& look) {
  paint_lens(painter, box, look);
  if (look.lit) {
    fill_box(painter, {box.left() + 4, box.center().y() - 1, box.width() - 8, 2}, faded(kWhite, .7), 1);
  }
  if (look.interaction.hover > 0) {
    frame_box(painter, box.adjusted(-.5, -.5, .5, .5), faded(kWhite, .5 * look.interaction.hover), 1, 2);
  }
  if (look.interaction.focused) paint_focus_ring(painter, box.adjusted(-1, -1, 1, 1), 3);
  draw_caption(painter, {box.left() + 30, box.top() + 9.3}, look.caption,
               {.colour = look.lit ? kWhite : palette::kLegend});
}

}  // namespace tandem

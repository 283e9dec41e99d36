#include <algorithm>

#include "paint/controls/knob.h"
#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/text/caption.h"

namespace tandem {

namespace {

void paint_leader(QPainter& painter, const RotaryPlace& place, double angle, double y, bool chosen) {
  QPainterPath path(on_circle(place.centre, place.radius + 3, angle));
  const QPointF bend = on_circle(place.centre, place.radius + 6.5, angle);
  path.lineTo(bend);
  path.lineTo(std::max(place.caption_x - 9, bend.x()), y);
  path.lineTo(place.caption_x - 4, y);
  const QColor colour = chosen ? QColor::fromRgb(palette::kLime) : faded(0xFF79818A, .85);
  stroke_path(painter, path, colour, chosen ? 1.4 : .9, Qt::RoundCap);
}

}  // namespace

double rotary_angle(int position, int count) {
  if (count <= 1) return 90;
  const double span = std::min(110.0, 26.0 * (count - 1));
  return 90 - span / 2 + span * position / (count - 1);
}

void paint_rotary(QPainter& painter, const RotaryPlace& place, const RotaryState& look) {
  const auto count = static_cast<int>(look.captions.size());
  const double first = place.centre.y() - (count - 1) * place.caption_pitch / 2;
  for (int i = 0; i < count; ++i) {
    const bool chosen = i == look.position;
    const double y = first + i * place.caption_pitch;
    paint_leader(painter, place, rotary_angle(i, count), y, chosen);
    const CaptionStyle style{.colour = chosen ? palette::kWhite : palette::kLegendUnchosen, .bold = chosen};
    draw_caption(painter, {place.caption_x, y + 3.5}, look.captions[i], style);
  }
  paint_knob(painter, place.centre, place.radius, look.pointer.value_or(rotary_angle(look.position, count)),
             look.interaction);
}

}  // namespace tandem

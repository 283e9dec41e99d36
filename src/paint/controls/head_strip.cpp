#include "paint/controls/head_strip.h"

#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/text/caption.h"

namespace tandem {

void paint_name(QPainter& painter) {
  draw_caption(painter, {8, 10.2}, QStringLiteral("TANDEM"),
               {.size = 8.5, .colour = palette::kNameStrip, .spacing = 1.7});
}

void paint_chrome_button(QPainter& painter, const QRectF& box, Icon icon, const InteractionState& interaction) {
  if (interaction.pressed) {
    fill_box(painter, box, faded(palette::kBlack, .35), 2);
  } else if (interaction.hover > 0) {
    fill_box(painter, box, faded(palette::kWhite, .12 * interaction.hover), 2);
  }
  paint_icon(painter, {box.left() + 8, box.top() + 6.5}, icon, interaction.enabled);
  // The strip is too low for a ring outside the box.
  if (interaction.focused) paint_focus_ring(painter, box.adjusted(2, 2, -2, -2), 1);
}

}  // namespace tandem

#include "paint/controls/gain.h"

#include "paint/strokes/palette.h"
#include "paint/text/caption.h"

namespace tandem {

void paint_gain(QPainter& painter, const QRectF& box, const QString& text) {
  const bool flat = text.trimmed() == QStringLiteral("0");
  draw_caption(painter, {box.center().x(), box.top() + 9.7}, text,
               {.colour = flat ? palette::kLegendUnchosen : palette::kWhite}, Anchor::Middle);
}

}  // namespace tandem

#include "paint/panel/window_shadow.h"

#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"

namespace tandem {

// Plates of little opacity on top of each other, each a little smaller than the one before.
void paint_window_shadow(QPainter& painter, const QSizeF& panel) {
  constexpr double kWidth = 18;
  constexpr double kDown = 6;
  constexpr double kStep = .5;
  constexpr double kOpacity = .42;
  constexpr double kCorner = 5;
  for (double out = kWidth; out > 0; out -= kStep) {
    const double near = 1 - out / kWidth;
    const double opacity = 2.4 * kOpacity * near * near / kWidth;
    const QRectF plate = QRectF(QPointF(0, kDown), panel).adjusted(-out, -out, out, out);
    fill_box(painter, plate, faded(palette::kBlack, opacity), kCorner + out);
  }
}

}  // namespace tandem

// Dot-matrix labels of the display panel: seven rows, six dot columns a cell (five and a gap). UI thread.
#pragma once

#include <QPainter>
#include <QString>

#include "paint/text/led_label_state.h"

namespace tandem {

/// Dot columns of a whole text, blanks included: the length of the ring.
int led_text_columns(const QString& text);

/// Draws from the label's top-left dot. An unbroken label also shows letters that the dot font lacks, in half dots.
/// Cells stand on whole device pixels. Glyphs are cached per letter, pitch, colours and scale (whole cache dropped at
/// 1024 glyphs).
void paint_led_label(QPainter& painter, const QPointF& top_left, const LedLabelState& look);

}  // namespace tandem

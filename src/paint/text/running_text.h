// The text of a label whose dark matrix stands still while the light runs over it. For led_label.cpp only. UI thread.
#pragma once

#include <QPainter>

#include "paint/text/led_label_state.h"

namespace tandem {

/// Draws the whole matrix and the letters over it, within the painter's clip. The matrix and each letter's light are
/// kept as images.
void paint_running_text(QPainter& painter, const QPointF& top_left, const LedLabelState& look);

}  // namespace tandem

// Everything of the panel that does not move: faceplate, glass, recessed panels, wells, engraved lines, fixed captions.
// UI thread. Cache it in one pixmap per window state and scale.
#pragma once

#include <QPainter>

#include "layout/panel_layout.h"

namespace tandem {

void paint_background(QPainter& painter, const WindowState& window);

}  // namespace tandem

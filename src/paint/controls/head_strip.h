// The strip at the top: the product's name, Minimise and Close. UI thread.
#pragma once

#include <QPainter>

#include "paint/controls/key_icon.h"
#include "paint/strokes/interaction_state.h"

namespace tandem {

void paint_name(QPainter& painter);

/// A button of the strip, Icon::Minimise or Icon::Close, in its 16 x 13 box.
void paint_chrome_button(QPainter& painter, const QRectF& box, Icon icon, const InteractionState& interaction);

}  // namespace tandem

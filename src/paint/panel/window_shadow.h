// The shadow about the window: black, 18 px wide, 6 px lower than the panel, densest at its edge. UI thread.
#pragma once

#include <QPainter>
#include <QSizeF>

namespace tandem {

/// Around a panel of this size with round corners whose top left is the painter's origin.
void paint_window_shadow(QPainter& painter, const QSizeF& panel);

}  // namespace tandem

// The gain window above an equalizer slider. UI thread.
#pragma once

#include <QPainter>
#include <QString>

namespace tandem {

/// The text of a gain window; the text "0" (blanks aside) is dim.
void paint_gain(QPainter& painter, const QRectF& box, const QString& text);

}  // namespace tandem

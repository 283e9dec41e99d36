// A picture of a display and what has just changed in it. UI thread.
#pragma once

#include <QImage>
#include <QPainter>
#include <QPointF>
#include <QVarLengthArray>

#include "paint/strokes/ink.h"

namespace tandem {

struct ChangedPicture {
  const QImage* image = nullptr;      // in device pixels; none: the display has no picture, its area is painted again
  QPointF at{};                       // its top left, px of the panel
  QVarLengthArray<QRect, 8> boxes{};  // pixels of the image
};

// Pixel for pixel, its top left at the device pixel nearest to a point of the panel.
inline void draw_picture(QPainter& painter, const QPointF& at, const QImage& image) {
  if (image.isNull()) return;
  const DevicePixels pixels(painter);
  painter.drawImage(pixels.at(at), image);
}

}  // namespace tandem

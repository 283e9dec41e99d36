// A picture of a display and what has just changed in it. UI thread.
#pragma once

#include <QImage>
#include <QRectF>
#include <QVarLengthArray>

namespace tandem {

struct ChangedPicture {
  const QImage* image;               // at device resolution
  QPointF at;                        // its top left, px of the panel
  QVarLengthArray<QRectF, 8> boxes;  // px of the panel

  // A box in pixels of the image.
  void add(const QRect& box) {
    const double scale = image->devicePixelRatio();
    boxes.append(QRectF(QPointF(box.topLeft()) / scale, QSizeF(box.size()) / scale).translated(at));
  }
};

}  // namespace tandem

#include "tools/pictures/sheet_image.h"

#include <cmath>

#include "paint/strokes/ink.h"

namespace tandem {

QImage painted_image(const QSize& size, double scale, const QColor& ground,
                     const std::function<void(QPainter&)>& paint) {
  QImage image(static_cast<int>(std::lround(size.width() * scale)),
               static_cast<int>(std::lround(size.height() * scale)), QImage::Format_ARGB32_Premultiplied);
  image.fill(ground);
  QPainter painter(&image);
  set_up(painter, scale);
  paint(painter);
  return image;
}

}  // namespace tandem

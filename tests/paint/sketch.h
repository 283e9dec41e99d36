// A small sheet to paint on and to read colours from.
#pragma once

#include "tools/pictures/sheet_image.h"

namespace tandem {

/// A picture of `size` px at `scale`, black before `draw`.
inline QImage sketch(const QSize& size, double scale, const std::function<void(QPainter&)>& draw) {
  return painted_image(size, scale, Qt::black, draw);
}

inline QRgb opaque(QRgb colour) { return colour | 0xFF000000U; }

}  // namespace tandem

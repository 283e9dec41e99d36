// A small sheet to paint on and to read colours from.
#pragma once

#include <QImage>
#include <QPainter>
#include <cmath>
#include <functional>

#include "paint/strokes/ink.h"

namespace tandem {

/// A picture of `size` px at `scale`, black before `draw`.
inline QImage sketch(const QSize& size, double scale, const std::function<void(QPainter&)>& draw) {
  QImage image(static_cast<int>(std::lround(size.width() * scale)),
               static_cast<int>(std::lround(size.height() * scale)), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::black);
  QPainter painter(&image);
  set_up(painter, scale);
  draw(painter);
  return image;
}

inline QRgb opaque(QRgb colour) { return colour | 0xFF000000U; }

}  // namespace tandem

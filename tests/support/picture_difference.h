// Pictures compared pixel by pixel. Rounding differs a little between versions of Qt and FreeType; what a control shows
// differs by much more.
#pragma once

#include <QImage>
#include <algorithm>
#include <cstdlib>

namespace tandem::test {

inline int difference(QRgb a, QRgb b) {
  return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b)),
                   std::abs(qAlpha(a) - qAlpha(b))});
}

// How many pixels of a box differ by more than `levels` of 255.
inline int differing_pixels(const QImage& a, const QImage& b, const QRect& box, int levels = 8) {
  int count = 0;
  const QRect seen = box & a.rect() & b.rect();
  for (int y = seen.top(); y <= seen.bottom(); ++y)
    for (int x = seen.left(); x <= seen.right(); ++x)
      if (difference(a.pixel(x, y), b.pixel(x, y)) > levels) ++count;
  return count;
}

}  // namespace tandem::test

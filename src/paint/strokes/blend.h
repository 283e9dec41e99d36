// Blending of opaque pixels. Any thread, no state.
#pragma once

#include <QColor>

namespace tandem {

/// `below` with `share` of 256 parts of `above` over it; both and the result are opaque.
inline QRgb blended(QRgb below, QRgb above, unsigned share) {
  // Two channels at a time: red and blue, then green.
  const unsigned red_blue = ((below & 0xFF00FF) * (256 - share) + (above & 0xFF00FF) * share) >> 8 & 0xFF00FF;
  const unsigned green = ((below & 0xFF00) * (256 - share) + (above & 0xFF00) * share) >> 8 & 0xFF00;
  return 0xFF000000 | red_blue | green;
}

}  // namespace tandem

// What the spectrum's kinds share; for spectrum*.cpp only.
#pragma once

#include "paint/displays/spectrum.h"

namespace tandem {

/// The display area within a larger image.
struct SpectrumTarget {
  QImage& image;
  QPoint origin;

  [[nodiscard]] QRgb* line(int y, int x) const {
    return reinterpret_cast<QRgb*>(image.scanLine(y + origin.y())) + x + origin.x();
  }
  /// Copies a box from an image of the area.
  void copy(const QImage& from, const QRect& box) const;
};

/// Redraw a whole half; the field has the size of a half.
void draw_line_half(const SpectrumTarget& target, const SpectrumBackdrop& face, std::span<const float> values, int side,
                    DistanceField& field);
void draw_roll_half(const SpectrumTarget& target, const SpectrumBackdrop& face, const RollHistory& roll, int side);

}  // namespace tandem

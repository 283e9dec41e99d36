// What the spectrum's kinds share; for spectrum*.cpp only. UI thread.
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

inline const QRgb* line_of(const QImage& image, int y, int x) {
  return reinterpret_cast<const QRgb*>(image.constScanLine(y)) + x;
}

/// Where a column's parts lie for the picture.
SpectrumTrace::Column spectrum_column(const SpectrumBackdrop& backdrop, const SpectrumPicture& picture,
                                      std::size_t side, int index);
/// The lines [top, bottom) of the area that may differ between two states of a column.
struct SpectrumLines {
  int top;
  int bottom;
};
SpectrumLines changed_lines(const SpectrumGrid& grid, const SpectrumTrace::Column& before,
                            const SpectrumTrace::Column& now);
void draw_column(const SpectrumTarget& target, const SpectrumBackdrop& backdrop, const SpectrumTrace::Column& column,
                 int x, SpectrumLines lines);

void draw_peak_marks(const SpectrumTarget& target, const SpectrumBackdrop& backdrop,
                     const SpectrumTrace::Column& column, int x);

/// Redraw a whole half; the trace has room for the line.
void draw_line_half(const SpectrumTarget& target, const SpectrumBackdrop& backdrop, std::span<const float> values,
                    std::size_t side, SpectrumTrace& standing);
void draw_roll_half(const SpectrumTarget& target, const SpectrumBackdrop& backdrop, const RollHistory& roll,
                    std::size_t side);

}  // namespace tandem

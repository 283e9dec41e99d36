// What the spectrum's kinds share; for spectrum*.cpp only. UI thread.
#pragma once

#include <span>

#include "paint/displays/spectrum_backdrop.h"
#include "paint/displays/spectrum_picture.h"

namespace tandem {

/// The pixels of an image, without Qt's question at every line whether they are shared.
template <class Pixel>
class PixelLines {
 public:
  PixelLines(Pixel* top_left, qsizetype bytes_per_line)
      : top_left_(top_left), pixels_per_line_(bytes_per_line / static_cast<qsizetype>(sizeof(Pixel))) {}
  [[nodiscard]] Pixel* line(int y, int x) const { return top_left_ + y * pixels_per_line_ + x; }

 private:
  Pixel* top_left_;
  qsizetype pixels_per_line_;
};

inline PixelLines<const QRgb> lines_of(const QImage& image) {
  return {reinterpret_cast<const QRgb*>(image.constBits()), image.bytesPerLine()};
}

/// The display area within a larger image.
struct SpectrumTarget {
  SpectrumTarget(QImage& whole, const QPoint& corner)
      : image(whole), origin(corner), lines(reinterpret_cast<QRgb*>(whole.bits()), whole.bytesPerLine()) {}

  QImage& image;
  QPoint origin;

  [[nodiscard]] QRgb* line(int y, int x) const { return lines.line(y + origin.y(), x + origin.x()); }
  /// Copies a box from an image of the area.
  void copy(const QImage& from, const QRect& box) const;

 private:
  PixelLines<QRgb> lines;
};

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

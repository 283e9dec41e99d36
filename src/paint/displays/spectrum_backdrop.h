// The still parts of the spectrum display in device pixels: everything dark, and everything lit. A moving picture is
// then only lines copied from one or the other, glass shine and grid included. UI thread.
#pragma once

#include <QImage>
#include <QPainter>
#include <vector>

#include "displays/spectrum/spectrum_grid.h"
#include "paint/displays/spectrum_style.h"
#include "paint/strokes/distance_field.h"

namespace tandem {

class SpectrumBackdrop {
 public:
  /// Builds the images for the scale of the style's grid; `area` is the display area in px, `well` the glass round it.
  SpectrumBackdrop(const SpectrumStyle& style, const QRectF& area, const QRectF& well);

  [[nodiscard]] const SpectrumStyle& style() const { return style_; }
  [[nodiscard]] const SpectrumGrid& grid() const { return style_.grid; }
  [[nodiscard]] const QImage& dark() const { return dark_; }
  /// Full columns; of the kind Lines the glow below the curve, of the kind Roll white all over.
  [[nodiscard]] const QImage& lit() const { return lit_; }
  /// Of the kind VLines the heads of the stems at every height, of the kind Roll black all over; else null.
  [[nodiscard]] const QImage& second() const { return second_; }
  [[nodiscard]] QSize size() const { return dark_.size(); }

  /// How the line of the kind Lines is stroked, and its colour in each line of a half from the top.
  [[nodiscard]] const StrokeProfile& line() const { return line_; }
  [[nodiscard]] const std::vector<QRgb>& line_colours() const { return line_colours_; }
  /// The share 0..1 of the way from one column's height to the next one's, for each pixel from middle to middle.
  [[nodiscard]] const std::vector<float>& line_shape() const { return line_shape_; }

 private:
  SpectrumStyle style_;
  StrokeProfile line_;
  std::vector<QRgb> line_colours_;
  std::vector<float> line_shape_;
  QImage dark_;
  QImage lit_;
  QImage second_;
};

}  // namespace tandem

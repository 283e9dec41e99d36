// The still parts of the spectrum display in device pixels: everything dark, and everything lit. A moving picture is
// then only lines copied from one or the other, glass shine and grid included. UI thread.
#pragma once

#include <QImage>
#include <QPainter>
#include <array>
#include <optional>
#include <vector>

#include "paint/strokes/distance_field.h"

namespace tandem {

enum class SpectrumKind { Points, Lines, Stems, Bars, Picks, Roll };

inline constexpr int kSpectrumRows = 28;

/// What the still parts depend on.
struct SpectrumStyle {
  SpectrumKind kind = SpectrumKind::Bars;
  bool led_style = true;  ///< bars of spots, else solid bars
  bool inactive = true;   ///< unlit spots show
  bool grid = false;
  int columns = 32;  ///< of each half
  double low = 0;    ///< what a half shows of all frequencies: its ends on the scale strip, 0..1
  double high = 1;
  std::optional<double> reference{};  ///< 0..1 along a half: the mark of the reference frequency on the scale strip
  bool operator==(const SpectrumStyle&) const = default;
};

/// How many columns a half shows for a number of bins: all, or as many as fit.
int spectrum_columns(int bins);

/// Places in device pixels from the top left of the display area.
struct SpectrumGrid {
  double scale = 1;
  int columns = 0;
  int pitch = 0;  ///< from column to column
  int width = 0;  ///< of a column
  int spot_height = 0;
  int height = 0;                            ///< of a full column
  int baseline = 0;                          ///< first line below the columns
  std::array<int, 2> left{};                 ///< x of the first column of each half
  std::array<int, kSpectrumRows> row_top{};  ///< first line of each row's spot, from the lowest row up

  [[nodiscard]] int column_x(int side, int column) const {
    return left[static_cast<std::size_t>(side)] + column * pitch;
  }
  [[nodiscard]] int half_width() const { return columns * pitch; }
  [[nodiscard]] int row_bottom(int row) const {
    return row == 0 ? baseline : row_top[static_cast<std::size_t>(row) - 1];
  }
};

class SpectrumBackdrop {
 public:
  /// Builds the images for a scale (1 = 100 %); `area` is the display area in px, `well` the glass round it.
  SpectrumBackdrop(const SpectrumStyle& style, double scale, const QRectF& area, const QRectF& well);

  [[nodiscard]] const SpectrumStyle& style() const { return style_; }
  [[nodiscard]] const SpectrumGrid& grid() const { return grid_; }
  [[nodiscard]] const QImage& dark() const { return dark_; }
  /// Levels: 0 the panel's colours by row; the roll has 0 lime, 1 yellow, 2 red.
  [[nodiscard]] const QImage& lit(std::size_t level = 0) const { return lit_[level]; }
  /// How the line kind is stroked.
  [[nodiscard]] const StrokeProfile& line() const { return line_; }
  [[nodiscard]] QSize size() const { return dark_.size(); }

 private:
  SpectrumStyle style_;
  SpectrumGrid grid_;
  StrokeProfile line_;
  QImage dark_;
  std::vector<QImage> lit_;
};

}  // namespace tandem

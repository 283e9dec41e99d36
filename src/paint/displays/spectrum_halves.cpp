// The kinds that are drawn a half at a time: the line and the roll.
#include <algorithm>
#include <cmath>

#include "paint/displays/spectrum_parts.h"

namespace tandem {

namespace {

constexpr float kRollFloor = .12F;
constexpr float kRollYellow = .7F;
constexpr float kRollRed = .8F;

QRect half_box(const SpectrumGrid& grid, int side) {
  return {grid.column_x(side, 0), grid.baseline - grid.height, grid.half_width(), grid.height};
}

QPointF level_point(const SpectrumGrid& grid, std::span<const float> values, int side, int column) {
  const double value = std::clamp(static_cast<double>(values[static_cast<std::size_t>(column)]), 0.0, 1.0);
  return {grid.column_x(side, column) + grid.width / 2.0, grid.baseline - value * grid.height};
}

/// How a level shows on the roll.
struct RollShade {
  std::size_t image;  ///< of SpectrumBackdrop::lit()
  unsigned share;     ///< 0 dark .. 256 lit
};

RollShade roll_shade(float value) {
  if (value > kRollRed) return {2, 256};
  if (value > kRollYellow) return {1, 256};
  if (value <= kRollFloor) return {0, 0};
  const float bright = .15F + .85F * (value - kRollFloor) / (kRollYellow - kRollFloor);
  return {0, static_cast<unsigned>(bright * 256)};
}

QRgb blended(QRgb dark, QRgb lit, unsigned share) {
  // Two channels at a time: red and blue, then green.
  const unsigned red_blue = ((dark & 0xFF00FF) * (256 - share) + (lit & 0xFF00FF) * share) >> 8 & 0xFF00FF;
  const unsigned green = ((dark & 0xFF00) * (256 - share) + (lit & 0xFF00) * share) >> 8 & 0xFF00;
  return 0xFF000000 | red_blue | green;
}

void fill_cell(const SpectrumTarget& target, const SpectrumBackdrop& face, const QRect& cell, RollShade shade) {
  for (int y = cell.top(); y <= cell.bottom(); ++y) {
    const auto* dark = reinterpret_cast<const QRgb*>(face.dark().constScanLine(y));
    const auto* lit = reinterpret_cast<const QRgb*>(face.lit(shade.image).constScanLine(y));
    QRgb* pixels = target.line(y, 0);
    for (int x = cell.left(); x <= cell.right(); ++x) pixels[x] = blended(dark[x], lit[x], shade.share);
  }
}

}  // namespace

void draw_line_half(const SpectrumTarget& target, const SpectrumBackdrop& face, std::span<const float> values, int side,
                    DistanceField& field) {
  const SpectrumGrid& grid = face.grid();
  const QRect half = half_box(grid, side);
  target.copy(face.dark(), half);
  field.clear();
  const QPointF corner = half.topLeft();
  const int count = std::min(grid.columns, static_cast<int>(values.size()));
  for (int i = 1; i < count; ++i) {
    field.add_line(level_point(grid, values, side, i - 1) - corner, level_point(grid, values, side, i) - corner);
  }
  field.blend(target.image, target.origin + half.topLeft(), face.line());
}

void draw_roll_half(const SpectrumTarget& target, const SpectrumBackdrop& face, const RollHistory& roll, int side) {
  const SpectrumGrid& grid = face.grid();
  target.copy(face.dark(), half_box(grid, side));
  const std::span<const float> values = side == 0 ? roll.left : roll.right;
  const int step = std::max(1, static_cast<int>(2 * grid.scale));
  const auto shown = std::min<std::uint64_t>({roll.written, static_cast<std::uint64_t>(std::max(roll.steps, 0)),
                                              static_cast<std::uint64_t>(grid.half_width() / step)});
  int x = grid.column_x(side, 0) + grid.half_width() - static_cast<int>(shown) * step;
  for (std::uint64_t i = roll.written - shown; i < roll.written; ++i, x += step) {
    const std::size_t first = static_cast<std::size_t>(i % static_cast<std::uint64_t>(roll.steps)) * kSpectrumRows;
    if (first + kSpectrumRows > values.size()) continue;
    for (int row = 0; row < kSpectrumRows; ++row) {
      const RollShade shade = roll_shade(values[first + static_cast<std::size_t>(row)]);
      const int top = grid.row_top[static_cast<std::size_t>(row)];
      if (shade.share > 0) fill_cell(target, face, {x, top, step, grid.row_bottom(row) - top}, shade);
    }
  }
}

}  // namespace tandem

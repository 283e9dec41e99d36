// The kinds that are drawn a half at a time: the line and the roll.
#include <algorithm>
#include <cmath>

#include "paint/displays/spectrum_colours.h"
#include "paint/displays/spectrum_parts.h"

namespace tandem {

namespace {

QRect half_box(const SpectrumGrid& grid, std::size_t side) {
  return {grid.left[side], grid.top(), grid.half_width(), grid.height()};
}

/// y of the line in the pixel x of a half, from the half's top.
double curve_at(const SpectrumBackdrop& backdrop, std::span<const float> values, int x) {
  const SpectrumGrid& grid = backdrop.grid();
  const int from_middle = std::max(x - grid.column_width() / 2, 0);
  const auto value = [&](int column) {
    const auto place = static_cast<std::size_t>(std::min(column, grid.columns - 1));
    return place < values.size() ? std::clamp(values[place], 0.0F, 1.0F) : 0.0F;
  };
  const float before = value(from_middle / grid.pitch);
  const float after = value(from_middle / grid.pitch + 1);
  const float share = backdrop.line_shape()[static_cast<std::size_t>(from_middle % grid.pitch)];
  return (1 - static_cast<double>(before + (after - before) * share)) * grid.height();
}

void lay_curve(const SpectrumBackdrop& backdrop, std::span<const float> values, SpectrumTrace& standing) {
  const int width = backdrop.grid().half_width();
  standing.curve.resize(static_cast<std::size_t>(width));
  standing.line->clear();
  QPointF before;
  for (int x = 0; x < width; ++x) {
    const QPointF at(x + .5, curve_at(backdrop, values, x));
    standing.curve[static_cast<std::size_t>(x)] = static_cast<int>(std::lround(at.y()));
    if (x > 0) standing.line->add_line(before, at);
    before = at;
  }
}

void fill_below(const SpectrumTarget& target, const SpectrumBackdrop& backdrop, const QRect& half,
                const std::vector<int>& curve) {
  const PixelLines<const QRgb> unlit_lines = lines_of(backdrop.dark());
  const PixelLines<const QRgb> lit_lines = lines_of(backdrop.lit());
  for (int y = 0; y < half.height(); ++y) {
    QRgb* pixels = target.line(half.top() + y, half.left());
    const QRgb* dark = unlit_lines.line(half.top() + y, half.left());
    const QRgb* lit = lit_lines.line(half.top() + y, half.left());
    for (std::size_t x = 0; x < curve.size(); ++x) pixels[x] = y >= curve[x] ? lit[x] : dark[x];
  }
}

/// A colour under the glass: between what black and what white look like there.
QRgb under_glass(QRgb black, QRgb white, QRgb colour) {
  const auto part = [=](int shift) {
    const unsigned low = black >> shift & 0xFF;
    const unsigned high = white >> shift & 0xFF;
    return (low + (high - low) * (colour >> shift & 0xFF) / 255) << shift;
  };
  return 0xFF000000 | part(16) | part(8) | part(0);
}

void fill_cell(const SpectrumTarget& target, const SpectrumBackdrop& backdrop, const QRect& cell, QRgb colour) {
  const PixelLines<const QRgb> black_lines = lines_of(backdrop.second());
  const PixelLines<const QRgb> white_lines = lines_of(backdrop.lit());
  for (int y = cell.top(); y <= cell.bottom(); ++y) {
    QRgb* pixels = target.line(y, cell.left());
    const QRgb* black = black_lines.line(y, cell.left());
    const QRgb* white = white_lines.line(y, cell.left());
    for (int x = 0; x < cell.width(); ++x) pixels[x] = under_glass(black[x], white[x], colour);
  }
}

}  // namespace

void draw_line_half(const SpectrumTarget& target, const SpectrumBackdrop& backdrop, std::span<const float> values,
                    std::size_t side, SpectrumTrace& standing) {
  const QRect half = half_box(backdrop.grid(), side);
  if (!standing.line) standing.line.emplace(half.size(), backdrop.line().reach());
  lay_curve(backdrop, values, standing);
  fill_below(target, backdrop, half, standing.curve);
  standing.line->blend(target.image, target.origin + half.topLeft(), backdrop.line(), backdrop.line_colours());
}

void draw_roll_half(const SpectrumTarget& target, const SpectrumBackdrop& backdrop, const RollHistory& roll,
                    std::size_t side) {
  const SpectrumGrid& grid = backdrop.grid();
  target.copy(backdrop.dark(), half_box(grid, side));
  const std::span<const float> values = side == 0 ? roll.left : roll.right;
  const int width = grid.roll_step();
  const auto shown = std::min<std::uint64_t>({roll.written, static_cast<std::uint64_t>(std::max(roll.steps, 0)),
                                              static_cast<std::uint64_t>(grid.half_width() / width)});
  int x = grid.left[side] + grid.half_width() - static_cast<int>(shown) * width;
  const auto rows = static_cast<std::size_t>(std::min(roll.rows, grid.rows));
  for (std::uint64_t i = roll.written - shown; i < roll.written; ++i, x += width) {
    const std::size_t first =
        static_cast<std::size_t>(i % static_cast<std::uint64_t>(roll.steps)) * static_cast<std::size_t>(roll.rows);
    if (first + rows > values.size()) continue;
    for (std::size_t row = 0; row < rows; ++row) {
      const float value = std::clamp(values[first + row], 0.0F, 1.0F);
      if (value <= kRollFloor) continue;
      const QRgb colour = roll_colours()[static_cast<std::size_t>(value * 255)];
      fill_cell(target, backdrop, {x, grid.row_top(static_cast<int>(row)), width, grid.row_pitch}, colour);
    }
  }
}

}  // namespace tandem

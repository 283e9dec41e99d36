// The kinds that are drawn column by column: points, stems, bars, picks. Heights without rows fall by parts of a pixel,
// so places are sixteenths of one and the lines at the edges are blended.
#include <algorithm>
#include <cmath>
#include <cstring>

#include "paint/displays/spectrum_parts.h"
#include "paint/strokes/blend.h"

namespace tandem {

namespace {

using Column = SpectrumTrace::Column;

constexpr int kPart = 16;                                                            // parts of a pixel
constexpr std::array<unsigned, kMostPeakMarks> kMarkShare = {256, 154, 90, 90, 90};  // of white, of 256
constexpr unsigned kCapShare = 97;                                                   // 38 %
constexpr double kMarkHeight = 1.5;                                                  // px, without rows

float value_at(std::span<const float> values, int index) {
  const auto place = static_cast<std::size_t>(index);
  return place < values.size() ? std::clamp(values[place], 0.0F, 1.0F) : 0.0F;
}

int parts(double pixels) { return static_cast<int>(std::lround(pixels * kPart)); }

int rows_of(const SpectrumGrid& grid, float value) {
  return static_cast<int>(std::lround(value * static_cast<float>(grid.rows)));
}

int spot(const SpectrumGrid& grid) { return (grid.row_pitch - grid.row_gap) * kPart; }

/// Height of what stands at the level: a point, a pick or the head of a stem.
int head_height(const SpectrumStyle& style) { return style.in_rows() ? spot(style.grid) : parts(2 * style.grid.scale); }

int mark_height(const SpectrumStyle& style) {
  return style.in_rows() ? spot(style.grid) : parts(kMarkHeight * style.grid.scale);
}

int exact_level(const SpectrumGrid& grid, float value) {
  return parts(grid.baseline - static_cast<double>(value) * grid.height());
}

int level(const SpectrumStyle& style, float value) {
  const SpectrumGrid& grid = style.grid;
  if (!style.in_rows()) return exact_level(grid, value);
  return (grid.baseline - rows_of(grid, value) * grid.row_pitch) * kPart;
}

void place_marks(Column& column, const SpectrumStyle& style, std::span<const float> peaks, int index, int per_column) {
  column.marks.fill(-1);
  const int lift = style.in_rows() ? 0 : parts(2 * style.grid.scale);
  for (int i = 0; i < std::min(per_column, kMostPeakMarks); ++i) {
    const auto place = static_cast<std::size_t>(index * per_column + i);
    if (place >= peaks.size() || peaks[place] < 0) continue;
    const int top = level(style, std::min(peaks[place], 1.0F));
    if (top >= style.grid.baseline * kPart - spot(style.grid) / 2) continue;  // has come down
    column.marks[static_cast<std::size_t>(i)] = std::max(top - lift, style.grid.top() * kPart);
  }
}

/// How much of line y lies in [top, bottom) parts, of 256.
unsigned cover(int y, int top, int bottom) {
  const int covered = std::min(bottom, (y + 1) * kPart) - std::max(top, y * kPart);
  return static_cast<unsigned>(std::max(covered, 0)) * (256 / kPart);
}

// The columns are four pixels wide at 100 % and eight at 200 %. Two overlapping copies of a size known beforehand are
// two moves each, where one of any size is a call of the library for every line of every column.
void copy_pixels(QRgb* pixels, const QRgb* from, int width) {
  constexpr int kMove = 4;
  if (width < kMove || width > 2 * kMove) {
    std::memcpy(pixels, from, static_cast<std::size_t>(width) * sizeof(QRgb));
  } else {
    std::memcpy(pixels, from, kMove * sizeof(QRgb));
    std::memcpy(pixels + width - kMove, from + width - kMove, kMove * sizeof(QRgb));
  }
}

void lay_over(QRgb* pixels, const QRgb* from, int width, unsigned share) {
  if (share == 0) return;
  if (share >= 256) {
    copy_pixels(pixels, from, width);
  } else {
    std::transform(pixels, pixels + width, from, pixels, [share](QRgb a, QRgb b) { return blended(a, b, share); });
  }
}

void whiten(QRgb* pixels, int width, unsigned share) {
  if (share == 0) return;
  std::transform(pixels, pixels + width, pixels, [share](QRgb a) { return blended(a, 0xFFFFFFFF, share); });
}

}  // namespace

Column spectrum_column(const SpectrumBackdrop& backdrop, const SpectrumPicture& picture, std::size_t side, int index) {
  const SpectrumStyle& style = backdrop.style();
  Column column;
  column.bottom = style.grid.baseline * kPart;
  const float value = value_at(side == 0 ? picture.left : picture.right, index);
  // A line is never drawn in rows, only its marks are.
  column.top = style.kind == AnalyserKind::Lines ? exact_level(style.grid, value) : level(style, value);
  const bool only_head = style.kind == AnalyserKind::Points || style.kind == AnalyserKind::Picks;
  if (only_head) column.bottom = std::min(column.bottom, column.top + head_height(style));
  place_marks(column, style, side == 0 ? picture.left_peaks : picture.right_peaks, index, picture.marks_per_column);
  return column;
}

SpectrumLines changed_lines(const SpectrumGrid& grid, const Column& before, const Column& now) {
  // What lies at the level, a cap or a head, reaches below it.
  const int reach = (std::max(grid.row_pitch, static_cast<int>(2 * grid.scale)) + 1) * kPart;
  const bool same_foot = before.bottom == now.bottom;
  int top = std::min(before.top, now.top);
  int bottom = std::max(before.top, now.top) + reach;
  if (!same_foot) bottom = std::max({bottom, before.bottom, now.bottom});
  for (const Column* column : {&before, &now}) {
    for (const int mark : column->marks) {
      if (mark < 0) continue;
      top = std::min(top, mark);
      bottom = std::max(bottom, mark + reach);
    }
  }
  return {std::max(top / kPart, 0), std::min((bottom + kPart - 1) / kPart, grid.baseline)};
}

void draw_column(const SpectrumTarget& target, const SpectrumBackdrop& backdrop, const Column& column, int x,
                 SpectrumLines lines) {
  const SpectrumStyle& style = backdrop.style();
  const int width = style.grid.column_width();
  const int head = style.kind == AnalyserKind::VLines ? column.top + head_height(style) : column.top;
  const bool capped = style.kind == AnalyserKind::Bar && style.solid;
  const int cap = capped ? column.top + parts(style.grid.scale) : column.top;
  const PixelLines<const QRgb> dark = lines_of(backdrop.dark());
  const PixelLines<const QRgb> lit = lines_of(backdrop.lit());
  const PixelLines<const QRgb> heads = head > column.top ? lines_of(backdrop.second()) : lit;
  for (int y = lines.top; y < lines.bottom; ++y) {
    QRgb* pixels = target.line(y, x);
    const unsigned share = cover(y, head, column.bottom);
    copy_pixels(pixels, share < 256 ? dark.line(y, x) : lit.line(y, x), width);
    if (share < 256) lay_over(pixels, lit.line(y, x), width, share);
    if (head > column.top) {
      lay_over(pixels, heads.line(y, x), width, cover(y, column.top, std::min(head, column.bottom)));
    }
    if (capped) whiten(pixels, width, cover(y, column.top, std::min(cap, column.bottom)) * kCapShare / 256);
  }
  draw_peak_marks(target, backdrop, column, x);
}

void draw_peak_marks(const SpectrumTarget& target, const SpectrumBackdrop& backdrop, const Column& column, int x) {
  const SpectrumStyle& style = backdrop.style();
  for (std::size_t i = kMostPeakMarks; i-- > 0;) {
    const int top = column.marks[i];
    if (top < 0) continue;
    const int bottom = std::min(top + mark_height(style), style.grid.baseline * kPart);
    for (int y = top / kPart; y * kPart < bottom; ++y)
      whiten(target.line(y, x), style.grid.column_width(), cover(y, top, bottom) * kMarkShare[i] / 256);
  }
}

}  // namespace tandem

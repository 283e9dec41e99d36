#include "paint/displays/spectrum.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "paint/displays/spectrum_parts.h"

namespace tandem {

namespace {

using Column = SpectrumTrace::Column;

constexpr int kGroups = 2;  // changed rectangles of each half
constexpr std::array<unsigned, kMostPeakMarks> kMarkOpacity = {255, 153, 89, 89, 89};

float value_at(std::span<const float> values, int index) {
  const auto place = static_cast<std::size_t>(index);
  return place < values.size() ? std::clamp(values[place], 0.0F, 1.0F) : 0.0F;
}

int row_top(const SpectrumGrid& grid, int rows) {
  return rows <= 0 ? grid.baseline : grid.row_top[static_cast<std::size_t>(std::min(rows, kSpectrumRows)) - 1];
}

void place_lit_lines(Column& column, const SpectrumBackdrop& face, float value) {
  const SpectrumGrid& grid = face.grid();
  const auto rows = static_cast<int>(std::lround(value * kSpectrumRows));
  const int level = grid.baseline - static_cast<int>(std::lround(value * static_cast<float>(grid.height)));
  column.bottom = grid.baseline;
  switch (face.style().kind) {
    case SpectrumKind::Points:
      column.top = std::min(level, grid.baseline - grid.spot_height);
      column.bottom = column.top + grid.spot_height;
      break;
    case SpectrumKind::Picks:
      column.top = row_top(grid, rows);
      column.bottom = rows == 0 ? column.top : column.top + grid.spot_height;
      break;
    case SpectrumKind::Bars:
      column.top = face.style().led_style ? row_top(grid, rows) : level;
      break;
    default:
      column.top = level;
      break;
  }
}

void place_marks(Column& column, const SpectrumGrid& grid, std::span<const float> peaks, int index, int per_column) {
  column.marks.fill(-1);
  for (int i = 0; i < std::min(per_column, kMostPeakMarks); ++i) {
    const auto place = static_cast<std::size_t>(index * per_column + i);
    if (place >= peaks.size() || peaks[place] < 0) continue;
    const auto rows = static_cast<int>(std::lround(std::min(peaks[place], 1.0F) * kSpectrumRows));
    if (rows > 0) column.marks[static_cast<std::size_t>(i)] = row_top(grid, rows);
  }
}

Column column_of(const SpectrumBackdrop& face, const SpectrumPicture& picture, int side, int index) {
  Column column;
  place_lit_lines(column, face, value_at(side == 0 ? picture.left : picture.right, index));
  place_marks(column, face.grid(), side == 0 ? picture.left_peaks : picture.right_peaks, index,
              picture.marks_per_column);
  return column;
}

/// The lines that may differ between two states of a column.
struct Lines {
  int top;
  int bottom;
};

Lines changed_lines(const Column& before, const Column& now, int spot_height) {
  const bool same_foot = before.bottom == now.bottom;
  Lines lines{std::min(before.top, now.top),
              same_foot ? std::max(before.top, now.top) : std::max(before.bottom, now.bottom)};
  for (const Column* column : {&before, &now}) {
    for (const int mark : column->marks) {
      if (mark < 0) continue;
      lines.top = std::min(lines.top, mark);
      lines.bottom = std::max(lines.bottom, mark + spot_height);
    }
  }
  return lines;
}

QRgb towards_white(QRgb pixel, unsigned opacity) {
  const auto part = [opacity](unsigned level) { return level + (255 - level) * opacity / 255; };
  return 0xFF000000U | part(pixel >> 16 & 0xFF) << 16 | part(pixel >> 8 & 0xFF) << 8 | part(pixel & 0xFF);
}

void draw_column(const SpectrumTarget& target, const SpectrumBackdrop& face, const Column& column, int x, Lines lines) {
  const auto bytes = static_cast<std::size_t>(face.grid().width) * sizeof(QRgb);
  // A point may lie across the border of two colours.
  const bool one_colour = face.style().kind == SpectrumKind::Points;
  for (int y = lines.top; y < lines.bottom; ++y) {
    const bool is_lit = y >= column.top && y < column.bottom;
    const QImage& from = is_lit ? face.lit() : face.dark();
    const int source = is_lit && one_colour ? column.top : y;
    std::memcpy(target.line(y, x), reinterpret_cast<const QRgb*>(from.constScanLine(source)) + x, bytes);
  }
  for (std::size_t i = kMostPeakMarks; i-- > 0;) {
    if (column.marks[i] < 0) continue;
    for (int y = column.marks[i]; y < column.marks[i] + face.grid().spot_height; ++y) {
      QRgb* pixels = target.line(y, x);
      std::transform(pixels, pixels + face.grid().width, pixels,
                     [opacity = kMarkOpacity[i]](QRgb pixel) { return towards_white(pixel, opacity); });
    }
  }
}

QRect update_group(const SpectrumTarget& target, const SpectrumBackdrop& face, const SpectrumPicture& picture,
                   SpectrumTrace& standing, int side, int group) {
  const SpectrumGrid& grid = face.grid();
  QRect changed;
  for (int i = grid.columns * group / kGroups; i < grid.columns * (group + 1) / kGroups; ++i) {
    Column& before = standing.columns[static_cast<std::size_t>(side * grid.columns + i)];
    const Column now = column_of(face, picture, side, i);
    if (now == before) continue;
    const Lines lines = changed_lines(before, now, grid.spot_height);
    const int x = grid.column_x(side, i);
    draw_column(target, face, now, x, lines);
    changed |= QRect(x, lines.top, grid.width, lines.bottom - lines.top);
    before = now;
  }
  return changed;
}

bool is_whole_half(const SpectrumBackdrop& face) {
  return face.style().kind == SpectrumKind::Lines || face.style().kind == SpectrumKind::Roll;
}

/// True if the half has to be drawn again; keeps what then stands.
bool note_half(const SpectrumBackdrop& face, const SpectrumPicture& picture, SpectrumTrace& standing, int side) {
  if (face.style().kind == SpectrumKind::Roll) return standing.roll_steps != picture.roll.written;
  const SpectrumGrid& grid = face.grid();
  bool moved = false;
  for (int i = 0; i < grid.columns; ++i) {
    Column& before = standing.columns[static_cast<std::size_t>(side * grid.columns + i)];
    const Column now = column_of(face, picture, side, i);
    moved = moved || now != before;
    before = now;
  }
  return moved;
}

void update_half(const SpectrumTarget& target, const SpectrumBackdrop& face, const SpectrumPicture& picture,
                 SpectrumTrace& standing, int side, ChangedRects& changed) {
  if (!note_half(face, picture, standing, side)) return;
  const SpectrumGrid& grid = face.grid();
  const QRect half(grid.column_x(side, 0), grid.baseline - grid.height, grid.half_width(), grid.height);
  if (face.style().kind == SpectrumKind::Roll) {
    draw_roll_half(target, face, picture.roll, side);
  } else {
    if (!standing.line) standing.line.emplace(half.size(), face.line().reach());
    draw_line_half(target, face, side == 0 ? picture.left : picture.right, side, *standing.line);
  }
  changed.append(half);
}

/// An image without a trace gets the dark face and, as a trace, what that face shows.
bool begin(const SpectrumTarget& target, const SpectrumBackdrop& face, SpectrumTrace& standing) {
  const auto columns = static_cast<std::size_t>(2 * face.grid().columns);
  if (standing.columns.size() == columns) return false;
  const int foot = face.grid().baseline;
  standing.columns.assign(columns, {foot, foot, {-1, -1, -1, -1, -1}});
  standing.roll_steps = ~std::uint64_t{0};
  target.copy(face.dark(), QRect(QPoint(0, 0), face.size()));
  return true;
}

}  // namespace

void SpectrumTarget::copy(const QImage& from, const QRect& box) const {
  const auto bytes = static_cast<std::size_t>(box.width()) * sizeof(QRgb);
  for (int y = box.top(); y <= box.bottom(); ++y) {
    std::memcpy(line(y, box.left()), reinterpret_cast<const QRgb*>(from.constScanLine(y)) + box.left(), bytes);
  }
}

ChangedRects update_spectrum(QImage& image, const QPoint& origin, const SpectrumBackdrop& face,
                             const SpectrumPicture& picture, SpectrumTrace& standing) {
  const SpectrumTarget target{image, origin};
  ChangedRects changed;
  const bool fresh = begin(target, face, standing);
  for (int side = 0; side < 2; ++side) {
    if (is_whole_half(face)) {
      update_half(target, face, picture, standing, side, changed);
      continue;
    }
    for (int group = 0; group < kGroups; ++group) {
      const QRect box = update_group(target, face, picture, standing, side, group);
      if (!box.isEmpty()) changed.append(box);
    }
  }
  standing.roll_steps = picture.roll.written;
  if (fresh) changed = {QRect(QPoint(0, 0), face.size())};
  for (QRect& box : changed) box.translate(origin);
  return changed;
}

}  // namespace tandem

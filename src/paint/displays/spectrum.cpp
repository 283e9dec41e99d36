#include "paint/displays/spectrum.h"

#include <cstring>

#include "paint/displays/spectrum_parts.h"

namespace tandem {

namespace {

using Column = SpectrumTrace::Column;

// Changed rectangles of each half: with four a third less is copied than with two; more of them cost more than they
// save.
constexpr int kGroups = 4;

QRect update_group(const SpectrumTarget& target, const SpectrumBackdrop& backdrop, const SpectrumPicture& picture,
                   SpectrumTrace& standing, std::size_t side, int group) {
  const SpectrumGrid& grid = backdrop.grid();
  const auto first = static_cast<std::size_t>(grid.columns) * side;
  QRect changed;
  for (int i = grid.columns * group / kGroups; i < grid.columns * (group + 1) / kGroups; ++i) {
    Column& before = standing.columns[first + static_cast<std::size_t>(i)];
    const Column now = spectrum_column(backdrop, picture, side, i);
    if (now == before) continue;
    const SpectrumLines lines = changed_lines(grid, before, now);
    const int x = grid.column_x(side, i);
    draw_column(target, backdrop, now, x, lines);
    changed |= QRect(x, lines.top, grid.column_width(), lines.bottom - lines.top);
    before = now;
  }
  return changed;
}

bool is_whole_half(const SpectrumBackdrop& backdrop) {
  return backdrop.style().kind == AnalyserKind::Lines || backdrop.style().kind == AnalyserKind::Roll;
}

/// Whether the half has to be drawn again; keeps what then stands.
bool note_half(const SpectrumBackdrop& backdrop, const SpectrumPicture& picture, SpectrumTrace& standing,
               std::size_t side) {
  if (backdrop.style().kind == AnalyserKind::Roll) return standing.roll_steps != picture.roll.written;
  const SpectrumGrid& grid = backdrop.grid();
  const auto first = static_cast<std::size_t>(grid.columns) * side;
  bool moved = false;
  for (int i = 0; i < grid.columns; ++i) {
    Column& before = standing.columns[first + static_cast<std::size_t>(i)];
    const Column now = spectrum_column(backdrop, picture, side, i);
    moved = moved || now != before;
    before = now;
  }
  return moved;
}

void draw_marks(const SpectrumTarget& target, const SpectrumBackdrop& backdrop, const SpectrumTrace& standing,
                std::size_t side) {
  const SpectrumGrid& grid = backdrop.grid();
  for (int i = 0; i < grid.columns; ++i)
    draw_peak_marks(target, backdrop,
                    standing.columns[static_cast<std::size_t>(grid.columns) * side + static_cast<std::size_t>(i)],
                    grid.column_x(side, i));
}

void update_half(const SpectrumTarget& target, const SpectrumBackdrop& backdrop, const SpectrumPicture& picture,
                 SpectrumTrace& standing, std::size_t side, ChangedRects& changed) {
  if (!note_half(backdrop, picture, standing, side)) return;
  const SpectrumGrid& grid = backdrop.grid();
  if (backdrop.style().kind == AnalyserKind::Roll) {
    draw_roll_half(target, backdrop, picture.roll, side);
  } else {
    draw_line_half(target, backdrop, side == 0 ? picture.left : picture.right, side, standing);
    draw_marks(target, backdrop, standing, side);
  }
  changed.append(QRect(grid.left[side], grid.top(), grid.half_width(), grid.height()));
}

/// An image without a trace gets the dark backdrop and, as a trace, what that shows.
bool begin(const SpectrumTarget& target, const SpectrumBackdrop& backdrop, SpectrumTrace& standing) {
  const auto columns = static_cast<std::size_t>(2 * backdrop.grid().columns);
  if (standing.columns.size() == columns) return false;
  // Of the line not even its height at silence is drawn yet.
  const Column nothing = backdrop.style().kind == AnalyserKind::Lines ? Column{} : spectrum_column(backdrop, {}, 0, 0);
  standing.columns.assign(columns, nothing);
  standing.roll_steps = ~std::uint64_t{0};
  target.copy(backdrop.dark(), QRect(QPoint(0, 0), backdrop.size()));
  return true;
}

}  // namespace

void SpectrumTarget::copy(const QImage& from, const QRect& box) const {
  const auto bytes = static_cast<std::size_t>(box.width()) * sizeof(QRgb);
  const PixelLines<const QRgb> source = lines_of(from);
  for (int y = box.top(); y <= box.bottom(); ++y) std::memcpy(line(y, box.left()), source.line(y, box.left()), bytes);
}

ChangedRects update_spectrum(QImage& image, const QPoint& origin, const SpectrumBackdrop& backdrop,
                             const SpectrumPicture& picture, SpectrumTrace& standing) {
  const SpectrumTarget target(image, origin);
  ChangedRects changed;
  const bool fresh = begin(target, backdrop, standing);
  for (const std::size_t side : {0U, 1U}) {
    if (is_whole_half(backdrop)) {
      update_half(target, backdrop, picture, standing, side, changed);
      continue;
    }
    for (int group = 0; group < kGroups; ++group) {
      const QRect box = update_group(target, backdrop, picture, standing, side, group);
      if (!box.isEmpty()) changed.append(box);
    }
  }
  standing.roll_steps = picture.roll.written;
  if (fresh) changed = {QRect(QPoint(0, 0), backdrop.size())};
  for (QRect& box : changed) box.translate(origin);
  return changed;
}

}  // namespace tandem

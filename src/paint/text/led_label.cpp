#include "paint/text/led_label.h"

#include <QHash>
#include <QImage>
#include <algorithm>
#include <cmath>

#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/text/dot_font.h"
#include "paint/text/reading_order.h"
#include "paint/text/running_text.h"

namespace tandem {

namespace {

constexpr int kColumns = 5;
constexpr std::size_t kCacheLimit = 1024;

/// Seven columns of eight bits: the neighbours' nearest columns, whose glow reaches into this cell, and the own five.
using CellDots = std::uint64_t;

struct GlyphKey {
  CellDots dots;
  QRgb colour;
  QRgb dark;
  int pitch;
  double scale;
  bool operator==(const GlyphKey&) const = default;
};

std::size_t qHash(const GlyphKey& key, std::size_t seed) {
  return qHashMulti(seed, key.dots, key.colour, key.dark, key.pitch, key.scale);
}

struct Dots {
  QPainterPath lit;
  QPainterPath dark;
  QPainterPath near_glow;
  QPainterPath far_glow;
};

bool lit_at(CellDots dots, int column, int row) { return (dots >> ((column + 1) * 8 + row) & 1) != 0; }

/// The area that a round stroke about the dot covers. Filling it costs a tenth of stroking.
void add_glow(QPainterPath& path, const QRectF& dot, double reach) {
  path.addRoundedRect(dot.adjusted(-reach, -reach, reach, reach), reach, reach);
}

Dots dot_paths(const GlyphKey& key) {
  Dots dots;
  for (QPainterPath* glow : {&dots.near_glow, &dots.far_glow}) glow->setFillRule(Qt::WindingFill);
  const double side = key.pitch >= 2 ? key.pitch * .86 : 1;
  for (int column = -1; column <= kColumns; ++column) {
    const int gap = column < 0 ? -1 : column == kColumns ? 1 : 0;
    for (int row = 0; row < kDotRows; ++row) {
      const bool lit = lit_at(key.dots, column, row);
      if (gap != 0 && !lit) continue;
      const QRectF dot((column + gap) * key.pitch, row * key.pitch, side, side);
      (lit ? dots.lit : dots.dark).addRect(dot);
      if (!lit || key.pitch < 2) continue;
      add_glow(dots.near_glow, dot, key.pitch * .4);
      add_glow(dots.far_glow, dot, key.pitch * .95);
    }
  }
  return dots;
}

QImage draw_glyph(const GlyphKey& key) {
  const int margin = key.pitch;
  const auto pixels = [&](int px) { return static_cast<int>(std::ceil(px * key.scale)); };
  QImage image(pixels(kColumns * key.pitch + 2 * margin), pixels(kDotRows * key.pitch + 2 * margin),
               QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.translate(pixels(margin), pixels(margin));
  set_up(painter, key.scale);
  const Dots dots = dot_paths(key);
  if (qAlpha(key.dark) != 0) fill_path(painter, dots.dark, QColor::fromRgb(key.dark));
  fill_path(painter, dots.far_glow, faded(key.colour, .10));
  fill_path(painter, dots.near_glow, faded(key.colour, .22));
  fill_path(painter, dots.lit, QColor::fromRgb(key.colour));
  return image;
}

const QImage& cached_glyph(const GlyphKey& key) {
  static QHash<GlyphKey, QImage> cache;
  auto found = cache.find(key);
  if (found == cache.end()) {
    if (static_cast<std::size_t>(cache.size()) >= kCacheLimit) cache.clear();
    found = cache.insert(key, draw_glyph(key));
  }
  return *found;
}

/// A label's text as it stands in the cells, with its scroll resolved.
class Cells {
 public:
  explicit Cells(const LedLabelState& look)
      : line_(reading_order(look.text)), ring_(look.scroll && !line_.letters.isEmpty()) {
    const int hidden = ring_ ? ring_column(line_, look.cells, kCellColumns, *look.scroll) : 0;
    skipped_ = hidden / kCellColumns;
    part_ = hidden % kCellColumns;
    count_ = look.cells + (part_ > 0 ? 1 : 0);
  }

  [[nodiscard]] int count() const { return count_; }
  [[nodiscard]] int first_column(int cell) const { return cell * kCellColumns - part_; }

  [[nodiscard]] CellDots dots(int cell) const {
    CellDots dots = glyph(cell - 1).back();
    const DotGlyph& own = glyph(cell);
    for (std::size_t i = 0; i < own.size(); ++i) dots |= CellDots{own[i]} << ((i + 1) * 8);
    return dots | CellDots{glyph(cell + 1).front()} << ((kColumns + 1) * 8);
  }

 private:
  [[nodiscard]] const DotGlyph& glyph(int cell) const {
    const auto size = static_cast<int>(line_.letters.size());
    const int place = ring_ ? (cell + skipped_) % size : cell;
    const bool blank = cell < 0 || cell >= count_ || place >= size;
    return dot_glyph(blank ? U' ' : static_cast<char32_t>(line_.letters[place]));
  }

  DisplayLine line_;
  bool ring_;
  int skipped_ = 0;
  int part_ = 0;
  int count_ = 0;
};

void draw_cells(QPainter& painter, const QPointF& top_left, const LedLabelState& look) {
  const Cells cells(look);
  const double scale = device_scale(painter);
  const DevicePixels pixels(painter);
  const auto margin = static_cast<int>(std::ceil(look.pitch * scale));
  const int seam = margin / 2;  // neighbouring cells meet in the middle of the gap between them
  const auto cell_left = [&](int cell) {
    return pixels.at(top_left + QPointF(cells.first_column(cell) * look.pitch, 0)) - QPoint(margin, margin);
  };
  for (int cell = 0; cell < cells.count(); ++cell) {
    const GlyphKey key{cells.dots(cell), look.colour, look.dark_dots.value_or(0), look.pitch, scale};
    const QImage& image = cached_glyph(key);
    const QPoint at = cell_left(cell);
    const int left = cell == 0 ? 0 : seam;
    const bool last = cell + 1 == cells.count();
    const int right = last ? image.width() : cell_left(cell + 1).x() - at.x() + seam;
    painter.drawImage(at + QPoint(left, 0), image, QRect(left, 0, right - left, image.height()));
  }
}

}  // namespace

int led_text_columns(const QString& text) {
  return static_cast<int>(reading_order(text).letters.size()) * kCellColumns;
}

void paint_led_label(QPainter& painter, const QPointF& top_left, const LedLabelState& look) {
  const bool cut = look.scroll.has_value();
  if (cut) {
    const int columns = look.cells * kCellColumns - 1;
    painter.save();
    painter.setClipRect(QRectF(top_left.x(), top_left.y() - look.pitch, columns * look.pitch, 9.0 * look.pitch),
                        Qt::IntersectClip);
  }
  if (look.unbroken) {
    paint_running_text(painter, top_left, look);
  } else {
    draw_cells(painter, top_left, look);
  }
  if (cut) painter.restore();
}

}  // namespace tandem

#include "paint/led_label.h"

#include <QHash>
#include <QImage>
#include <cmath>

#include "paint/dot_font.h"
#include "paint/ink.h"
#include "paint/palette.h"

namespace tandem {

namespace {

constexpr int kColumns = 5;
constexpr int kRows = 7;
constexpr int kCellColumns = 6;
constexpr std::size_t kCacheLimit = 1024;

struct GlyphKey {
  std::uint64_t dots;
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
};

bool lit_at(std::uint64_t dots, int column, int row) { return (dots >> (column * 8 + row) & 1) != 0; }

Dots dot_paths(const GlyphKey& key) {
  Dots dots;
  const double side = key.pitch >= 2 ? key.pitch * .86 : 1;
  for (int column = 0; column < kColumns; ++column) {
    for (int row = 0; row < kRows; ++row) {
      QPainterPath& path = lit_at(key.dots, column, row) ? dots.lit : dots.dark;
      path.addRect(column * key.pitch, row * key.pitch, side, side);
    }
  }
  return dots;
}

QImage draw_glyph(const GlyphKey& key) {
  const int margin = key.pitch;
  const auto pixels = [&](int px) { return static_cast<int>(std::ceil(px * key.scale)); };
  QImage image(pixels(kColumns * key.pitch + 2 * margin), pixels(kRows * key.pitch + 2 * margin),
               QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.translate(pixels(margin), pixels(margin));
  set_up(painter, key.scale);
  const Dots dots = dot_paths(key);
  if (qAlpha(key.dark) != 0) fill_path(painter, dots.dark, QColor::fromRgb(key.dark));
  if (key.pitch >= 2) {
    stroke_path(painter, dots.lit, faded(key.colour, .10), key.pitch * 1.9);
    stroke_path(painter, dots.lit, faded(key.colour, .22), key.pitch * .8);
  }
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

std::uint64_t packed(const DotGlyph& glyph) {
  std::uint64_t dots = 0;
  for (std::size_t column = 0; column < glyph.size(); ++column) dots |= std::uint64_t{glyph[column]} << (column * 8);
  return dots;
}

void draw_cells(QPainter& painter, const QPointF& top_left, const LedLabelLook& look) {
  const QList<uint> letters = look.text.toUcs4();
  const auto count = static_cast<int>(letters.size());
  const int moved = look.scroll && count > 0 ? *look.scroll % (count * kCellColumns) : 0;
  const int skipped = moved / kCellColumns;
  const int part = moved % kCellColumns;
  const double scale = device_scale(painter);
  const DevicePixels pixels(painter);
  const auto margin = static_cast<int>(std::ceil(look.pitch * scale));
  for (int cell = 0; cell < look.cells + (part > 0 ? 1 : 0); ++cell) {
    const int index = look.scroll && count > 0 ? (cell + skipped) % count : cell;
    const char32_t letter = index < count ? letters[index] : U' ';
    const GlyphKey key{packed(dot_glyph(letter)), look.colour, look.dark_dots.value_or(0), look.pitch, scale};
    const int column = cell * kCellColumns - part;
    const QPoint at = pixels.at(top_left + QPointF(column * look.pitch, 0));
    painter.drawImage(at - QPoint(margin, margin), cached_glyph(key));
  }
}

}  // namespace

void paint_led_label(QPainter& painter, const QPointF& top_left, const LedLabelLook& look) {
  const bool cut = look.scroll.has_value();
  if (cut) {
    const int columns = look.cells * kCellColumns - 1;
    painter.save();
    painter.setClipRect(QRectF(top_left.x(), top_left.y() - look.pitch, columns * look.pitch, 9.0 * look.pitch),
                        Qt::IntersectClip);
  }
  draw_cells(painter, top_left, look);
  if (cut) painter.restore();
}

}  // namespace tandem

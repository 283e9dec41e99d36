#include "paint/text/running_text.h"

#include <QHash>
#include <QImage>
#include <QList>
#include <algorithm>
#include <cmath>

#include "paint/strokes/ink.h"
#include "paint/text/dot_font.h"
#include "paint/text/reading_order.h"

namespace tandem {

namespace {

constexpr int kPhases = 8;  // places of a letter within a device pixel
constexpr qsizetype kMostImages = 1024;
constexpr double kDot = .86;      // of the pitch
constexpr double kHalfDot = .46;  // of the pitch

struct ImageKey {
  uint letter;  // 0: the dark matrix
  QRgb colour;
  int pitch;
  int cells;  // of the matrix
  int phase;
  double scale;
  bool operator==(const ImageKey&) const = default;
};

std::size_t qHash(const ImageKey& key, std::size_t seed) {
  return qHashMulti(seed, key.letter, key.colour, key.pitch, key.cells, key.phase, key.scale);
}

QList<QRectF> lit_dots(uint letter, double pitch) {
  QList<QRectF> dots;
  const auto add = [&](int column, int row, double step, double side) {
    dots.append(QRectF(column * step, row * step, side, side));
  };
  if (has_dot_glyph(letter)) {
    const DotGlyph& glyph = dot_glyph(letter);
    for (int column = 0; column < static_cast<int>(glyph.size()); ++column)
      for (int row = 0; row < kDotRows; ++row)
        if ((glyph[static_cast<std::size_t>(column)] >> row & 1) != 0) add(column, row, pitch, pitch * kDot);
    return dots;
  }
  const FineGlyph& glyph = fine_glyph(letter);
  for (int column = 0; column < static_cast<int>(glyph.size()); ++column)
    for (int row = 0; row < 2 * kDotRows; ++row)
      if ((glyph[static_cast<std::size_t>(column)] >> row & 1) != 0) add(column, row, pitch / 2, pitch * kHalfDot);
  return dots;
}

void paint_glow(QPainter& painter, const QList<QRectF>& dots, double reach, const QColor& colour) {
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  for (const QRectF& dot : dots) path.addRoundedRect(dot.adjusted(-reach, -reach, reach, reach), reach, reach);
  fill_path(painter, path, colour);
}

void paint_letter(QPainter& painter, const ImageKey& key) {
  const QList<QRectF> dots = lit_dots(key.letter, key.pitch);
  paint_glow(painter, dots, key.pitch * .95, faded(key.colour, .10));
  paint_glow(painter, dots, key.pitch * .4, faded(key.colour, .22));
  for (const QRectF& dot : dots) fill_box(painter, dot, QColor::fromRgb(key.colour));
}

void paint_matrix(QPainter& painter, const ImageKey& key) {
  for (int column = 0; column < key.cells * kCellColumns - 1; ++column)
    for (int row = 0; row < kDotRows; ++row)
      fill_box(painter, {1. * column * key.pitch, 1. * row * key.pitch, key.pitch * kDot, key.pitch * kDot},
               QColor::fromRgb(key.colour));
}

// The glow reaches a pitch beyond the dots on every side.
QImage drawn(const ImageKey& key) {
  const auto pixels = [&](int px) { return static_cast<int>(std::ceil(px * key.scale)); };
  QImage image(pixels((key.cells * kCellColumns + 2) * key.pitch) + 1, pixels((kDotRows + 2) * key.pitch),
               QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.translate(pixels(key.pitch) + static_cast<double>(key.phase) / kPhases, pixels(key.pitch));
  set_up(painter, key.scale);
  key.letter == 0 ? paint_matrix(painter, key) : paint_letter(painter, key);
  return image;
}

const QImage& kept_image(const ImageKey& key) {
  static QHash<ImageKey, QImage> images;
  if (!images.contains(key)) {
    if (images.size() >= kMostImages) images.clear();
    images.insert(key, drawn(key));
  }
  return images[key];
}

}  // namespace

void paint_running_text(QPainter& painter, const QPointF& top_left, const LedLabelState& look) {
  const DisplayLine line = reading_order(look.text);
  const QList<uint>& letters = line.letters;
  const int hidden = look.scroll ? ring_column(line, look.cells, kCellColumns, *look.scroll) : 0;
  const int first = hidden / kCellColumns;
  const int part = hidden % kCellColumns;
  const double scale = device_scale(painter);
  const DevicePixels pixels(painter);
  const auto margin = static_cast<int>(std::ceil(look.pitch * scale));
  const QPoint origin = pixels.at(top_left) - QPoint(margin, margin);
  if (look.dark_dots) painter.drawImage(origin, kept_image({0, *look.dark_dots, look.pitch, look.cells, 0, scale}));
  for (int cell = 0; cell < look.cells + (part > 0 ? 1 : 0); ++cell) {
    const auto place = look.scroll ? (first + cell) % std::max<qsizetype>(letters.size(), 1) : qsizetype{cell};
    if (place >= letters.size() || letters[place] == U' ') continue;
    const double x = (cell * kCellColumns - part) * look.pitch * scale;
    const double whole = std::floor(x + .5 / kPhases);
    const auto phase = std::clamp(static_cast<int>(std::lround((x - whole) * kPhases)), 0, kPhases - 1);
    painter.drawImage(origin + QPoint(static_cast<int>(whole), 0),
                      kept_image({letters[place], look.colour, look.pitch, 1, phase, scale}));
  }
}

}  // namespace tandem

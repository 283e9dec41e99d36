#include "paint/surfaces/faceplate.h"

#include <QImage>
#include <QLinearGradient>
#include <algorithm>
#include <cmath>

#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/strokes/random_sequence.h"

namespace tandem {

namespace {

constexpr double kTileWidth = 200;
constexpr double kTileHeight = 64;
constexpr double kGradientHeight = 426;  // the tallest window: smaller ones show the same upper part

// The texture is the same at every start.
void draw_scratches(QPainter& painter) {
  RandomSequence sequence(7);
  for (int i = 0; i < 210; ++i) {
    const double y = std::floor(sequence.next() * 128) / 2;
    const double x = sequence.next() * 240 - 40;
    const double width = 40 + sequence.next() * 160;
    const bool light = sequence.next() > .5;
    const double opacity = light ? .012 + sequence.next() * .03 : .03 + sequence.next() * .06;
    fill_box(painter, {x, y, width, .5}, faded(light ? palette::kWhite : palette::kBlack, opacity));
  }
}

QImage make_tile(double scale) {
  const QSize size(static_cast<int>(std::lround(kTileWidth * scale)),
                   static_cast<int>(std::lround(kTileHeight * scale)));
  QImage tile(size, QImage::Format_ARGB32_Premultiplied);
  tile.fill(Qt::transparent);
  QPainter painter(&tile);
  painter.scale(size.width() / kTileWidth, size.height() / kTileHeight);
  painter.setRenderHint(QPainter::Antialiasing);
  draw_scratches(painter);
  return tile;
}

// The lines of light and shadow run along the middle of the plate's second px.
QPainterPath upper_edge(const QSizeF& window, double radius) {
  const double right = window.width() - 1.5;
  const double bottom = window.height() - 1.5;
  QPainterPath path(QPointF(1.5, bottom - 3.5));
  path.lineTo(1.5, 1.5 + radius);
  if (radius > 0) path.arcTo(QRectF(1.5, 1.5, 2 * radius, 2 * radius), 180, -90);
  path.lineTo(right - radius, 1.5);
  if (radius > 0) path.arcTo(QRectF(right - 2 * radius, 1.5, 2 * radius, 2 * radius), 90, -90);
  path.lineTo(right, bottom - 3.5);
  return path;
}

QPainterPath lower_edge(const QSizeF& window, double radius) {
  const double right = window.width() - 1.5;
  const double bottom = window.height() - 1.5;
  QPainterPath path(QPointF(1.5, bottom - radius));
  if (radius > 0) path.arcTo(QRectF(1.5, bottom - 2 * radius, 2 * radius, 2 * radius), 180, 90);
  path.lineTo(right - radius, bottom);
  if (radius > 0) path.arcTo(QRectF(right - 2 * radius, bottom - 2 * radius, 2 * radius, 2 * radius), 270, 90);
  return path;
}

}  // namespace

QBrush brushed_texture(const QPainter& painter) {
  static double tile_scale = 0;
  static QImage tile;
  const double scale = device_scale(painter);
  if (tile_scale != scale) {
    tile = make_tile(scale);
    tile_scale = scale;
  }
  QBrush brush(tile);
  brush.setTransform(QTransform::fromScale(kTileWidth / tile.width(), kTileHeight / tile.height()));
  return brush;
}

void paint_faceplate(QPainter& painter, const QSizeF& window, double radius) {
  const double inner = std::max(0.0, radius - 1);
  const QRectF plate(1, 1, window.width() - 2, window.height() - 2);
  QLinearGradient metal(0, 0, 0, kGradientHeight);
  const double stops[] = {0, .10, .55, 1};
  for (std::size_t i = 0; i < 4; ++i) metal.setColorAt(stops[i], QColor::fromRgb(palette::kFaceplate[i]));
  fill_box(painter, QRectF(QPointF(0, 0), window), QColor::fromRgb(palette::kOuterEdge), radius);
  fill_box(painter, plate, metal, inner);
  fill_box(painter, plate, brushed_texture(painter), inner);

  const QRectF edge_box(1.5, 1.5, window.width() - 3, window.height() - 6.5);
  const QBrush light =
      downward(edge_box, {{0, palette::kWhite, .42}, {.2, palette::kWhite, .16}, {1, palette::kWhite, .05}});
  painter.strokePath(upper_edge(window, inner), QPen(light, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  stroke_path(painter, lower_edge(window, inner), faded(palette::kBlack, .45), 1, Qt::RoundCap);
}

}  // namespace tandem

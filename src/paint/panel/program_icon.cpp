#include "paint/panel/program_icon.h"

#include <algorithm>
#include <array>

#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"

namespace tandem {

namespace {

constexpr double kUnits = 64;
constexpr int kRows = 7;
constexpr std::array<int, 6> kFalling = {7, 6, 5, 3, 2, 1};

QRgb spot_colour(std::size_t column, int row) {
  const bool falling = row < kFalling[column];
  const bool rising = row < kFalling[kFalling.size() - 1 - column];
  if (falling && rising) return palette::kYellow;
  if (falling) return palette::kLime;
  return rising ? palette::kOrange : 0xFF182420;
}

void paint_plate(QPainter& painter) {
  fill_box(painter, {1, 1, 62, 62}, QColor::fromRgb(palette::kOuterEdge), 10);
  fill_box(painter, {2.5, 2.5, 59, 59},
           downward({2.5, 2.5, 59, 59}, {{0, 0xFF6A727A}, {.08, 0xFF454B52}, {1, 0xFF24282C}}), 8.5);
}

void paint_spots(QPainter& painter) {
  fill_box(painter, {8, 9, 48, 47}, downward({8, 9, 48, 47}, {{0, 0xFF000000}, {1, 0xFF4A525A}}), 5);
  fill_box(painter, {9.5, 10.5, 45, 44}, QColor::fromRgb(palette::kGlassMiddle), 4);
  for (std::size_t column = 0; column < kFalling.size(); ++column) {
    for (int row = 0; row < kRows; ++row) {
      fill_box(painter, {12.5 + 6.6 * static_cast<double>(column), 46.5 - 5.6 * row, 5.6, 4.4},
               QColor::fromRgb(spot_colour(column, row)), .6);
    }
  }
}

// Spots of less than two pixels would melt together: solid bars on whole pixels instead, on glass that fills the plate.
void paint_bars(QPainter& painter, int pixels) {
  const int bar = (pixels + 4) / 8;
  const int columns = static_cast<int>(kFalling.size());
  const int left = (pixels - columns * bar) / 2;
  const int high = pixels - 2 * left;
  painter.fillRect(left - 1, left - 1, columns * bar + 2, high + 2, QColor::fromRgb(palette::kGlassMiddle));
  for (int column = 0; column < columns; ++column) {
    for (int row = 0; row < kRows; ++row) {
      const int top = pixels - left - high * (row + 1) / kRows;
      const int bottom = pixels - left - high * row / kRows;
      painter.fillRect(left + column * bar, top, bar, bottom - top,
                       QColor::fromRgb(spot_colour(static_cast<std::size_t>(column), row)));
    }
  }
}

}  // namespace

QImage program_icon(int pixels) {
  constexpr int kLeastWithSpots = 40;
  QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  set_up(painter, pixels / kUnits);
  paint_plate(painter);
  if (pixels >= kLeastWithSpots) {
    paint_spots(painter);
    return image;
  }
  painter.resetTransform();
  paint_bars(painter, pixels);
  return image;
}

}  // namespace tandem

#include "paint/displays/level_bar.h"

#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"

namespace tandem {

namespace {

constexpr double kRowPitch = 4;
constexpr double kColumnWidth = 5;
constexpr double kYellowFrom = .6;

void paint_column(QPainter& painter, const QPointF& foot, int lit) {
  for (int row = 0; row < kLevelRows; ++row) {
    const bool high = (row + .5) / kLevelRows > kYellowFrom;
    const double top = foot.y() - (row + 1) * kRowPitch + 1;
    if (row < lit) {
      const QRectF spot(foot.x(), top, kColumnWidth, 3);
      fill_box(painter, snapped(painter, spot), QColor::fromRgb(high ? palette::kYellow : palette::kLime));
    } else {
      const QRectF spot(foot.x(), top + 1, kColumnWidth, 1);
      fill_box(painter, snapped(painter, spot), QColor::fromRgb(high ? palette::kOlive : palette::kGreen));
    }
  }
}

}  // namespace

void paint_level_bar(QPainter& painter, const QRectF& box, const LevelPicture& picture) {
  fill_box(painter, snapped(painter, box), QColor::fromRgb(0xFF020303));
  paint_column(painter, {box.left() + 1, box.bottom() - 1}, picture.left_rows);
  paint_column(painter, {box.left() + 7, box.bottom() - 1}, picture.right_rows);
}

}  // namespace tandem

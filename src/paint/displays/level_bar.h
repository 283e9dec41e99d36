// The level bar between the needle meters: two columns of 22 spots, 13 x 91 px. UI thread.
#pragma once

#include <QPainter>

#include "displays/meters/level_bar.h"

namespace tandem {

inline constexpr int kLevelRows = LevelBar::kRows;

struct LevelPicture {
  int left_rows = 0;  ///< lit rows from below, 0..kLevelRows
  int right_rows = 0;
  bool operator==(const LevelPicture&) const = default;
};

void paint_level_bar(QPainter& painter, const QRectF& box, const LevelPicture& picture);

}  // namespace tandem

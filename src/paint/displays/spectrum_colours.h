// The colours of the spectrum by height. Any thread.
#pragma once

#include <QColor>
#include <array>

namespace tandem {

struct RowColours {
  QRgb lit;
  QRgb dark;
};

/// LED rows: lime, from 70 % of the height yellow, from 80 % red.
RowColours row_colours(double height);

/// Smooth bars and lines: the three colours run into each other about the same heights.
QRgb gradient_colour(double height);

/// What a level 0..1 shows on the roll, for 0..255; below kRollFloor nothing.
inline constexpr float kRollFloor = .10F;
const std::array<QRgb, 256>& roll_colours();

}  // namespace tandem

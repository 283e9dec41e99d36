// Slanted seven-segment digits. UI thread.
#pragma once

#include <QPainter>

namespace tandem {

inline constexpr double kDigitWidth = 7.2;
inline constexpr double kDigitHeight = 14;
inline constexpr double kDigitAdvance = 9.5;

/// Draws 0..9, '-' or a blank (all segments dark; so is any other letter) from the cell's top-left. Dark segments show.
void paint_digit(QPainter& painter, const QPointF& top_left, char digit, QRgb lit, QRgb dark);

}  // namespace tandem

// The volume gauge and the three pitch lamps that take its place in pitch mode. UI thread.
#pragma once

#include <QPainter>

namespace tandem {

/// 58 segments in 231 x 6 px, lit up to `percent` (0..100), yellow above three quarters.
void paint_gauge(QPainter& painter, const QRectF& box, double percent);

/// A lit lamp is a full pill with a glow, a dark one a thin line; the colour is the lamp's own, exact.
void paint_pitch_lamp(QPainter& painter, const QRectF& box, QRgb colour, bool lit);

/// The hair line between two neighbouring lamps.
void paint_lamp_link(QPainter& painter, const QRectF& left_lamp, const QRectF& right_lamp);

}  // namespace tandem

// What is set into the faceplate: black glass, recessed panels, wells and engraved lines. UI thread.
#pragma once

#include <QPainter>

namespace tandem {

/// Bezel and glass; the contents come between this and the shine.
void paint_glass(QPainter& painter, const QRectF& box);
/// Over the contents of the same box: inner shadow, sheen, lower lip.
void paint_glass_shine(QPainter& painter, const QRectF& box);
/// The bezel's line while the pointer is on a display panel that can be pressed; hover 0..1.
void paint_glass_hover(QPainter& painter, const QRectF& box, double hover);

/// A recessed panel (equalizer, board).
void paint_bevel(QPainter& painter, const QRectF& box);
/// A recessed window (mix strip, band gains).
void paint_well(QPainter& painter, const QRectF& box, double radius = 2);

/// Dark cut and light lip, one device-exact line each.
void paint_cut_across(QPainter& painter, const QPointF& from, double length);
void paint_cut_down(QPainter& painter, const QPointF& from, double length);

}  // namespace tandem

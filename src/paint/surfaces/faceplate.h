// The faceplate of brushed graphite that everything stands on. UI thread.
#pragma once

#include <QBrush>
#include <QPainter>
#include <QSizeF>

namespace tandem {

/// The whole window's plate with its corners (radius 5, or 0 for square ones) and edge lines; outside the corners
/// nothing is painted.
void paint_faceplate(QPainter& painter, const QSizeF& window, double radius = 5);

/// The brushed texture, 200 x 64 px, lying from the window's origin. The tile is cached for the last scale used.
QBrush brushed_texture(const QPainter& painter);

}  // namespace tandem

// The letters "dB" of the meters as shapes: no font, so they look the same on every desktop. UI thread.
#pragma once

#include <QPainter>

namespace tandem {

/// Draws them 16 px wide and 9 px high, the end of their baseline at `at`. Their stems stand on whole device pixels.
void draw_decibel_letters(QPainter& painter, const QPointF& at, QRgb colour);

}  // namespace tandem

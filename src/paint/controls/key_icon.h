// The pictures on keys, drawn about a centre within 24 x 20 px. UI thread.
#pragma once

#include <QPainter>

namespace tandem {

enum class Icon { None, Play, PlayActive, Pause, PauseActive, Stop, StopActive, Next, Up, Down, Minimise, Close };

/// The icon of picture Icone(index), 0..5; any other index has none.
Icon icone(int index);

/// A disabled key shows the resting picture in grey.
void paint_icon(QPainter& painter, const QPointF& centre, Icon icon, bool enabled);

}  // namespace tandem

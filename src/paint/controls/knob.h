// Turned knobs: the volume wheel and the rotary switches. Angles in degrees clockwise from 12 o'clock. UI thread.
#pragma once

#include <QPainter>
#include <QStringList>
#include <optional>

#include "layout/rotary_place.h"
#include "paint/strokes/interaction_state.h"

namespace tandem {

void paint_knob(QPainter& painter, const QPointF& centre, double radius, double degrees,
                const InteractionState& interaction);

struct WheelState {
  double share = 0;  ///< 0..1 of the 270 degrees from -135 to +135
  InteractionState interaction{};
};

/// The 21 marks round the volume wheel, part of the background.
void paint_wheel_marks(QPainter& painter, const QRectF& box);
void paint_wheel(QPainter& painter, const QRectF& box, const WheelState& look);

struct RotaryState {
  QStringList captions{};
  int position = 0;
  std::optional<double> pointer{};  ///< degrees while the pointer moves; none: it stands at the position
  InteractionState interaction{};
};

/// Where the pointer stands at a position.
double rotary_angle(int position, int count);
void paint_rotary(QPainter& painter, const RotaryPlace& place, const RotaryState& look);

}  // namespace tandem

// A seven-segment display with an up and a down button on its right. UI thread.
#pragma once

#include <QPainter>

#include "paint/strokes/interaction_state.h"

namespace tandem {

struct SpinnerState {
  int value = 0;
  int digits = 2;    ///< a longer number shows its last digits, the places before a shorter one stay dark
  bool lime = true;  ///< lime on dark green, else white on grey
  InteractionState up{};
  InteractionState down{};
  bool focused = false;
};

/// The boxes of the two buttons within the spinner's box.
QRectF spinner_up_box(const QRectF& box);
QRectF spinner_down_box(const QRectF& box);

void paint_spinner(QPainter& painter, const QRectF& box, const SpinnerState& look);

}  // namespace tandem

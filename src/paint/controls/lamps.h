// The lead-time lamps of the mix strip and the lamp buttons of the board. UI thread.
#pragma once

#include <QPainter>
#include <QString>
#include <optional>

#include "paint/strokes/interaction_state.h"

namespace tandem {

struct LampState {
  QRgb colour = 0;  ///< the lamp's own colour, shown exact
  bool lit = false;
  QString caption{};
  InteractionState interaction{};
  std::optional<double> breath{};  ///< of a lit lead lamp while two songs overlap: 0 calm .. 1 brightest
};

/// A round lamp in the middle of its 16 x 16 box, its caption ending 1 px before the box.
void paint_lead_lamp(QPainter& painter, const QRectF& box, const LampState& look);

/// A lens of 22 x 11 px, its caption to the right.
void paint_lamp_button(QPainter& painter, const QRectF& box, const LampState& look);

}  // namespace tandem

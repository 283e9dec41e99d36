// Keys: the back colour is the lit frame round a smoked tile that carries a picture or a caption. UI thread.
#pragma once

#include <QPainter>
#include <QString>

#include "paint/controls/key_icon.h"
#include "paint/strokes/interaction_state.h"

namespace tandem {

struct KeyState {
  QRgb back_colour = 0xFF4C5259;  ///< exact 1 px inside the left edge at half height
  bool lit = false;               ///< the frame glows, the caption is white
  Icon icon = Icon::None;
  QString caption{};
  bool bold = false;
  InteractionState interaction{};
};

void paint_key(QPainter& painter, const QRectF& box, const KeyState& look);

/// The silver stud without caption; `interaction.enabled` is not used.
void paint_stud(QPainter& painter, const QRectF& box, const InteractionState& interaction);

}  // namespace tandem

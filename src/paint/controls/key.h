// Keys: the back colour is the lit frame round a smoked tile that carries a picture or a caption. UI thread.
#pragma once

#include <QPainter>
#include <QString>

#include "paint/controls/key_icon.h"
#include "paint/strokes/interaction_state.h"

namespace tandem {

struct KeyLook {
  QRgb back_colour = 0xFF4C5259;  ///< exact 1 px inside the left edge at half height
  bool lit = false;               ///< the frame glows, the caption is white
  Face face = Face::None;
  QString caption{};
  bool bold = false;
  Touch touch{};
};

void paint_key(QPainter& painter, const QRectF& box, const KeyLook& look);

/// The silver stud without caption; `touch.enabled` is not used.
void paint_stud(QPainter& painter, const QRectF& box, const Touch& touch);

}  // namespace tandem

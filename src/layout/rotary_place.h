// Where a rotary switch has its knob and its captions. Lengths in px at 100 %. Values; any thread.
#pragma once

#include <QPointF>

namespace tandem {

struct RotaryPlace {
  QPointF centre;
  double radius = 22;
  double caption_x = 0;
  double caption_pitch = 13;
};

}  // namespace tandem

// Mouse wheels: whole notches up (positive) or down, also from fine wheels that send parts of a notch. UI thread.
#pragma once

#include <QWheelEvent>

namespace tandem {

// `rest` keeps the part of a notch for the next event of the same control; a turn the other way begins without it.
inline int whole_wheel_steps(const QWheelEvent& event, int& rest) {
  constexpr int kNotch = 120;
  const int turned = event.angleDelta().y() != 0 ? event.angleDelta().y() : event.angleDelta().x();
  if ((turned > 0 && rest < 0) || (turned < 0 && rest > 0)) rest = 0;
  rest += turned;
  const int steps = rest / kNotch;
  rest -= steps * kNotch;
  return steps;
}

}  // namespace tandem

// Mouse wheels: whole notches up (positive) or down, also from fine wheels that send parts of a notch.
#pragma once

#include <QWheelEvent>

namespace tandem {

// `rest` keeps the part of a notch for the next event of the same control.
inline int whole_wheel_steps(const QWheelEvent& event, int& rest) {
  constexpr int kNotch = 120;
  rest += event.angleDelta().y() != 0 ? event.angleDelta().y() : event.angleDelta().x();
  const int steps = rest / kNotch;
  rest -= steps * kNotch;
  return steps;
}

}  // namespace tandem

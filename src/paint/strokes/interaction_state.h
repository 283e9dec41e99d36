// Interaction state of a control. The paint state of every interactive control has one. Values; any thread.
#pragma once

namespace tandem {

struct InteractionState {
  double hover = 0;  ///< 0 pointer elsewhere .. 1 pointer on the control; between while the hover light fades
  bool pressed = false;
  bool focused = false;  ///< keyboard focus that is to be shown
  bool enabled = true;
};

/// No control paints further outside its box than this, px at 100 %: glow, shadow and focus ring.
inline constexpr int kPaintMargin = 5;

}  // namespace tandem

#include "controls/kinds/slider.h"

namespace tandem {

void Slider::user_press() {
  if (held_) return;
  held_ = true;
  press.raise();
}

void Slider::user_release() {
  if (!held_) return;
  held_ = false;
  ++releases_;
  release.raise();
}

}  // namespace tandem

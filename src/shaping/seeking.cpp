#include "shaping/seeking.h"

#include <cstddef>

#include "controls/panel_controls.h"

namespace tandem {

void Seeking::press() { state_.SeekDragging = kTrue; }

void Seeking::change() { controls_.LblPosition.Caption = "0" + sound_.Helper->time_text(controls_.Slider1.Position); }

void Seeking::release() {
  sound_.AudioFile[static_cast<std::size_t>(state_.ActiveDeck)]->put_Position(controls_.Slider1.Position);
  state_.SeekDragging = kFalse;
}

}  // namespace tandem

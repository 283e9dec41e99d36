// MMSwitchX1: which display is fed and shown. UI thread.
// A display that is not chosen is disconnected, disabled and hidden. The chosen ones are connected before the others
// are disconnected; a display is enabled before it is shown and disabled before it is hidden.
#pragma once

#include <cstdint>
#include <initializer_list>

#include "audio/sound_graph.h"

namespace tandem {

struct PanelControls;

class DisplaySelector {
 public:
  DisplaySelector(PanelControls& controls, SoundGraph& sound) : controls_(controls), sound_(sound) {}

  void change();                     // the switch has moved; the board's "Default" lamp turns olive
  void show(std::int32_t position);  // 0 spectrum, 1 meters and level bar, 2 oscilloscope; any other: nothing

 private:
  void show_spectrum();
  void show_meters();
  void show_oscilloscope();
  void hide_meters();
  void clear(std::initializer_list<MMConnectorX::Slot> slots);

  PanelControls& controls_;
  SoundGraph& sound_;
};

}  // namespace tandem

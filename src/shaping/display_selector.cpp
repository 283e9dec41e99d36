#include "shaping/display_selector.h"

#include "controls/panel_controls.h"

namespace tandem {

namespace {

using Slot = MMConnectorX::Slot;

void switch_on(MMDisplayX& display) {
  display.put_Enabled(true);
  display.put_Visible(true);
}

void switch_off(MMDisplayX& display) {
  display.put_Enabled(false);
  display.put_Visible(false);
}

}  // namespace

void DisplaySelector::change() {
  controls_.MMLEDX6.LEDColor = clOlive;
  show(controls_.MMSwitchX1.Position);
}

void DisplaySelector::show(std::int32_t position) {
  if (position == 0) show_spectrum();
  if (position == 1) show_meters();
  if (position == 2) show_oscilloscope();
}

void DisplaySelector::clear(std::initializer_list<Slot> slots) {
  for (const Slot slot : slots) sound_.MMConnectorX1->put_target(slot, "");
}

void DisplaySelector::show_spectrum() {
  sound_.MMConnectorX1->put_target(Slot::Spectrum, "MMSpectrum1");
  clear({Slot::LeftMeter, Slot::RightMeter, Slot::Level, Slot::Oscilloscope});
  switch_on(*sound_.MMSpectrum1);
  hide_meters();
  switch_off(*sound_.MMLevelX1);
  switch_off(*sound_.MMOscopeX1);
}

void DisplaySelector::show_meters() {
  sound_.MMConnectorX1->put_target(Slot::LeftMeter, "MMMeterX1");
  sound_.MMConnectorX1->put_target(Slot::RightMeter, "MMMeterX2");
  sound_.MMConnectorX1->put_target(Slot::Level, "MMLevelX1");
  clear({Slot::Spectrum, Slot::Oscilloscope});
  MMDisplayX* const chosen[] = {sound_.MMMeterX1.get(), sound_.MMMeterX2.get(), sound_.MMLevelX1.get()};
  for (MMDisplayX* display : chosen) display->put_Enabled(true);
  for (MMDisplayX* display : chosen) display->put_Visible(true);
  switch_off(*sound_.MMSpectrum1);
  switch_off(*sound_.MMOscopeX1);
}

void DisplaySelector::show_oscilloscope() {
  sound_.MMConnectorX1->put_target(Slot::Oscilloscope, "MMOscopeX1");
  clear({Slot::Spectrum, Slot::LeftMeter, Slot::RightMeter, Slot::Level});
  switch_on(*sound_.MMOscopeX1);
  switch_off(*sound_.MMSpectrum1);
  hide_meters();
  switch_off(*sound_.MMLevelX1);
}

void DisplaySelector::hide_meters() {
  sound_.MMMeterX1->put_Enabled(false);
  sound_.MMMeterX2->put_Enabled(false);
  sound_.MMMeterX1->put_Visible(false);
  sound_.MMMeterX2->put_Visible(false);
}

}  // namespace tandem

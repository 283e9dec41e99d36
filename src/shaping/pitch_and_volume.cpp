#include "shaping/pitch_and_volume.h"

#include <cstddef>
#include <cstdlib>
#include <string>

#include "base/rounding.h"
#include "controls/panel_controls.h"

namespace tandem {

namespace {

constexpr std::int32_t kUnitsPerStep = 5;

std::int32_t floor_step(std::int32_t p) {
  return p >= 0 ? p / kUnitsPerStep : -((-p + kUnitsPerStep - 1) / kUnitsPerStep);
}

std::string shown_step(std::int32_t p) { return std::to_string(std::abs(p) / kUnitsPerStep); }

}  // namespace

void PitchAndVolume::change_pitch() {
  state_.PitchMoving = kTrue;
  const std::int32_t p = controls_.SliderP.Position;
  sound_.Pitch[static_cast<std::size_t>(state_.ActiveDeck)]->put_Value(static_cast<float>(p));
  show_step(p, floor_step(p) > 0);
  show_small_step(p);
}

void PitchAndVolume::press_pitch() {
  const std::int32_t p = controls_.SliderP.Position;
  if (p == 0) {
    controls_.LED2.LEDColor = clAqua;
    controls_.INDIC.Caption = "PITCH  0";
  }
  if (floor_step(p) != 0 && state_.PitchMoving == kFalse) {
    controls_.LED2.LEDColor = clAqua;
    show_step(p, p > 0);
  }
  show_small_step(p);
  controls_.INDIC.LEDColor = clAqua;
  for (Lamp* sign : {&controls_.LED1, &controls_.LED2, &controls_.LED3}) sign->Visible = true;
  controls_.MeterVol.Visible = false;
}

// What stands for p = -1 .. -4 ("PITCH -00") is replaced by the small step.
void PitchAndVolume::show_step(std::int32_t p, bool plus) {
  const bool minus = floor_step(p) < 0;
  if (plus) controls_.INDIC.Caption = "PITCH +0" + shown_step(p);
  controls_.LED3.LEDColor = plus ? clRed : clMaroon;
  if (minus) controls_.INDIC.Caption = "PITCH -0" + shown_step(p);
  controls_.LED1.LEDColor = minus ? clRed : clMaroon;
  if (p == 0) controls_.INDIC.Caption = "PITCH  0";
  controls_.LED2.LEDColor = p == 0 ? clAqua : clTeal;
}

void PitchAndVolume::show_small_step(std::int32_t p) {
  if (p >= 1 && p <= 4) {
    controls_.INDIC.Caption = "PITCH  +";
    controls_.LED3.LEDColor = clRed;
  }
  if (p >= -4 && p <= -1) {
    controls_.INDIC.Caption = "PITCH  -";
    controls_.LED1.LEDColor = clRed;
  }
}

void PitchAndVolume::release_pitch() {
  controls_.INDIC.Caption = "VOLUME";
  controls_.INDIC.LEDColor = clYellow;
  for (Lamp* sign : {&controls_.LED1, &controls_.LED2, &controls_.LED3}) sign->Visible = false;
  controls_.MeterVol.Visible = true;
  state_.PitchMoving = kFalse;
}

void PitchAndVolume::end_reset() {
  release_pitch();
  controls_.TimerDelay.put_Enabled(false);
}

void PitchAndVolume::change_volume() {
  const std::int32_t v = controls_.Volume.Value;
  sound_.WaveMixer->put_Volume(v);
  controls_.MeterVol.Progress = static_cast<std::int32_t>(rounded_half_to_even(v / 32768.0 * 100.0));
}

}  // namespace tandem

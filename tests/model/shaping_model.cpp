// Pitch, volume, seeking and the equalizer.
#include <algorithm>
#include <cmath>

#include "model/panel_model.h"

namespace tandem::model {

// above: the right lamp is lit; it goes with the text of whole steps up.
void PanelModel::pitch_texts(Number value, bool above) {
  const std::string steps = std::to_string(std::abs(value) / 5);
  look.signs[2].Colour = above ? kRed : kMaroon;
  if (above) look.INDIC.Caption = "PITCH +0" + steps;
  const bool below = value <= -1;
  look.signs[0].Colour = below ? kRed : kMaroon;
  if (below) look.INDIC.Caption = "PITCH -0" + steps;
  look.signs[1].Colour = value == 0 ? kAqua : kTeal;
  if (value == 0) look.INDIC.Caption = "PITCH  0";
}

// Below a whole step there is a sign alone.
void PanelModel::pitch_sign(Number value) {
  if (value >= 1 && value <= 4) {
    look.INDIC.Caption = "PITCH  +";
    look.signs[2].Colour = kRed;
  }
  if (value >= -4 && value <= -1) {
    look.INDIC.Caption = "PITCH  -";
    look.signs[0].Colour = kRed;
  }
}

void PanelModel::move_pitch(Number moved) {
  const Number value = std::clamp(moved, -20, 20);
  look.SliderP = value;
  look.PitchMoving = -1;
  call("Pitch(" + std::to_string(look.ActiveDeck) + ").Value(" + std::to_string(value) + ")");
  look.decks.at(static_cast<std::size_t>(look.ActiveDeck)).Pitch = static_cast<float>(value);
  pitch_texts(value, value >= 5);
  pitch_sign(value);
}

void PanelModel::press_pitch() {
  const Number value = look.SliderP;
  if (value == 0) {
    look.signs[1].Colour = kAqua;
    look.INDIC.Caption = "PITCH  0";
  }
  if ((value >= 5 || value <= -1) && look.PitchMoving == 0) pitch_texts(value, value > 0);
  pitch_sign(value);
  look.INDIC.Colour = kAqua;
  for (Box& sign : look.signs) sign.Visible = true;
  look.MeterVol.Visible = false;
}

void PanelModel::release_pitch() {
  look.INDIC.Caption = "VOLUME";
  look.INDIC.Colour = kYellow;
  for (Box& sign : look.signs) sign.Visible = false;
  look.MeterVol.Visible = true;
  look.PitchMoving = 0;
}

void PanelModel::click_pitch_reset() {
  move_pitch(0);
  start_delay();
}

void PanelModel::move_volume(Number moved) {
  look.Volume = std::clamp(moved, 0, 32768);
  call("WaveMixer.Volume(" + std::to_string(look.Volume) + ")");
  look.MixerVolume = look.Volume;
  look.Progress = static_cast<Number>(std::nearbyint(look.Volume / 32768.0 * 100.0));  // halves to even
}

void PanelModel::move_seek(Number moved) {
  put_slider(moved);
  look.LblPosition.Caption = "0" + time_text(look.Slider1);
}

void PanelModel::release_seek() {
  const std::string deck = std::to_string(look.ActiveDeck);
  call("AudioFile(" + deck + ").Position(" + std::to_string(look.Slider1) + ")");
  look.decks.at(static_cast<std::size_t>(look.ActiveDeck)).Position = look.Slider1;
  look.SeekDragging = 0;
}

void PanelModel::move_band(std::size_t band, Number moved) {
  const Number value = std::clamp(moved, -12, 12);
  look.bands.at(band) = value;
  look.gains.at(band) = value;
  look.gain_texts.at(band) = (value < 0 ? "" : " ") + std::to_string(value);
}

void PanelModel::move_bypass(Number position) { look.Bypassed = position == 0; }

}  // namespace tandem::model

#include "shell/painel.h"

#include <cstddef>

#include "controls/panel_controls.h"
#include "controls/panel_groups.h"
#include "controls/panel_sizes.h"

namespace tandem {

void Painel::load() {
  parts_.equalizer.add_bands();
  controls_.LblPosition.Caption = "00:00";
  controls_.Image1.Height = 1250;
  controls_.Image1.Width = 3615;
  set_size(kFullHeight, kFullWidth);
  clear_playlist();
  state_.SeekDragging = kFalse;
  parts_.settings.read();
  apply_settings();
  parts_.sound.WaveOut->start();
}

void Painel::clear_playlist() {
  state_.SongCount = 0;
  state_.MixStarted = kFalse;
  state_.NextSongLoaded = kFalse;
  controls_.PlayList.Clear();
}

// Putting a value into a control raises its notification, so that sound and analyser follow.
void Painel::apply_settings() {
  controls_.BufferSwitch.Position = state_.BufferMode != 0 ? 1 : 0;
  controls_.Volume.Value = state_.SavedVolume;
  apply_values();
  apply_choices();
}

void Painel::apply_values() {
  for (std::size_t i = 0; i < kSpinners.size(); ++i) (controls_.*kSpinners[i]).Value = state_.SpinValues[i];
  for (std::size_t i = 0; i < kBoardSwitches.size(); ++i)
    (controls_.*kBoardSwitches[i]).Position = state_.SwitchPositions[i];
  controls_.MMSwitchX1.Position = state_.DisplayChoice;
}

void Painel::apply_choices() {
  for (std::size_t i = 0; i < kOptionLamps.size(); ++i) parts_.board.set_option(i, state_.OptionFlags[i] != 0);
  parts_.selector.show(state_.DisplayChoice);
  parts_.mix.light_lead_time(state_.MixTimeMs);
}

void Painel::unload() {
  parts_.sound.WaveOut->stop();
  parts_.sound.WaveOut->close();
  parts_.settings.write();
}

void Painel::set_size(Twips height, Twips width) {
  controls_.Painel.Height = height;
  controls_.Painel.Width = width;
}

void Painel::toggle_size() {
  WindowFrame& window = controls_.Painel;
  if (window.Width == kFullWidth) {
    set_size(kSmallHeight, kSmallWidth);
    controls_.ShowControls.BackColor = clGreen;
    return;
  }
  set_size(kFullHeight, kFullWidth);
  window.Top = (window.ScreenHeight - window.Height) / 2;
  window.Left = (window.ScreenWidth - window.Width) / 2;
}

void Painel::reset_pitch() {
  controls_.SliderP.Position = 0;
  controls_.TimerDelay.put_Enabled(true);
}

void Painel::press_reset() { controls_.Command2.BackColor = clGrey; }

void Painel::release_reset() { controls_.Command2.BackColor = clSilver; }

}  // namespace tandem

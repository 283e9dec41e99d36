#include "model/model_look.h"

#include <sstream>

#include "controls/panel_groups.h"

namespace tandem::model {

namespace {

Box box_of(const Button& button) { return {button.Enabled, button.Visible, button.BackColor, button.Picture}; }
Box box_of(const Lamp& lamp) { return {lamp.Enabled, lamp.Visible, lamp.LEDColor, 0}; }
Box box_of(const Gauge& gauge) { return {gauge.Enabled, gauge.Visible, 0, 0}; }
Box box_of(const MMDisplayX& display) { return {display.Enabled(), display.Visible(), 0, 0}; }
Text text_of(const LedLabel& label) { return {label.Caption, label.LEDColor, label.Scrolling}; }

void look_at_state(const test::TestPanel& panel, PanelLook& look) {
  const RunState& state = panel.state;
  look.CurrentSong = state.CurrentSong;
  look.ActiveDeck = state.ActiveDeck;
  look.SelectedEntry = state.SelectedEntry;
  look.SongCount = state.SongCount;
  look.MixTimeMs = state.MixTimeMs;
  look.BufferMode = state.BufferMode;
  look.MixStarted = state.MixStarted;
  look.NextSongLoaded = state.NextSongLoaded;
  look.SeekDragging = state.SeekDragging;
  look.PitchMoving = state.PitchMoving;
  look.LastFolder = state.LastFolder;
  look.InitDir = panel.dialog.InitDir;
  look.Filter = panel.dialog.Filter;
}

void look_at_list(const test::TestPanel& panel, PanelLook& look) {
  const PanelControls& c = panel.controls;
  look.PlayList = panel.lines(c.PlayList);
  look.ListAux = panel.lines(c.ListAux);
  look.ListAux2 = panel.lines(c.ListAux2);
  look.ListIndex = c.PlayList.ListIndex();
  look.PlayListEnabled = c.PlayList.Enabled;
  look.PlayListVisible = c.PlayList.Visible;
  look.UpList = box_of(c.UpList);
  look.DownList = box_of(c.DownList);
  look.LoadList = box_of(c.LoadList);
  look.SaveList = box_of(c.SaveList);
  look.LoadSong = box_of(c.LoadSong);
  look.ShowPlayList = box_of(c.ShowPlayList);
  look.EqualizerVisible = c.MMPanelX1[0].Visible;
}

void look_at_sound(const test::TestPanel& panel, PanelLook& look) {
  const SoundGraph& sound = panel.program.sound;
  for (std::size_t i = 0; i < 2; ++i)
    look.decks.at(i) = {sound.AudioFile.at(i)->FileName(), sound.AudioFile.at(i)->Position(),
                        sound.Pitch.at(i)->Value(), sound.WaveMixer->Mute(static_cast<int>(i))};
  look.MixTimer = sound.MixTimer->Interval();
  look.BufferSize = sound.WaveOut->BufferSize();
  look.MixerVolume = sound.WaveMixer->Volume();
  look.ListTimer = sound.ListTimer->Enabled();
  look.TimerDelay = panel.controls.TimerDelay.Enabled();
  look.Bypassed = sound.EQ->Bypassed();
  for (std::size_t i = 0; i < look.gains.size() && static_cast<int>(i) < sound.EQ->FilterCount(); ++i)
    look.gains.at(i) = sound.EQ->filter(static_cast<int>(i)).Gain;
}

void look_at_player(const PanelControls& c, PanelLook& look) {
  look.PLAY = box_of(c.PLAY);
  look.PAUSE = box_of(c.PAUSE);
  look.STOPBtn = box_of(c.STOPBtn);
  look.NextBtn = box_of(c.NextBtn);
  look.Command2 = box_of(c.Command2);
  look.ShowControls = box_of(c.ShowControls);
  for (std::size_t i = 0; i < kLeadTimes.size(); ++i) look.leads.at(i) = (c.*kLeadTimes.at(i).lamp).LEDColor;
  look.SongLabel = text_of(c.SongLabel);
  look.LblPosition = text_of(c.LblPosition);
  look.LblTempTot = text_of(c.LblTempTot);
  look.ClockLabel = text_of(c.ClockLabel);
  look.INDIC = text_of(c.INDIC);
  look.signs = {box_of(c.LED1), box_of(c.LED2), box_of(c.LED3)};
  look.MeterVol = box_of(c.MeterVol);
  look.Progress = c.MeterVol.Progress;
  look.Volume = c.Volume.value();
  look.SliderP = c.SliderP.value();
  look.Slider1 = c.Slider1.value();
  look.Slider1Maximum = c.Slider1.maximum();
  look.BufferSwitch = c.BufferSwitch.value();
}

void look_at_board(const test::TestPanel& panel, PanelLook& look) {
  const PanelControls& c = panel.controls;
  for (std::size_t i = 0; i < kBands; ++i) {
    look.bands.at(i) = c.sl0.at(i).value();
    look.gain_texts.at(i) = c.dbLabel0.at(i).Caption;
  }
  for (std::size_t i = 0; i < kOptionLamps.size(); ++i) look.lamps.at(i) = (c.*kOptionLamps.at(i)).LEDColor;
  look.lamps[5] = c.MMLEDX6.LEDColor;
  for (std::size_t i = 0; i < kSpinners.size(); ++i) look.spinners.at(i) = (c.*kSpinners.at(i)).value();
  for (std::size_t i = 0; i < kBoardSwitches.size(); ++i) look.switches.at(i) = (c.*kBoardSwitches.at(i)).value();
  look.switches[4] = c.MMSwitchX1.value();
  look.Width = c.Painel.Width;
  look.Height = c.Painel.Height;
  look.Top = c.Painel.Top;
}

void look_at_displays(const SoundGraph& sound, PanelLook& look) {
  for (std::size_t i = 0; i < look.analyser.size(); ++i)
    look.analyser.at(i) = sound.MMSpectrum1->get(static_cast<SpectrumSetting>(i));
  look.displays = {box_of(*sound.MMSpectrum1), box_of(*sound.MMMeterX1), box_of(*sound.MMMeterX2),
                   box_of(*sound.MMLevelX1), box_of(*sound.MMOscopeX1)};
  for (std::size_t i = 0; i < look.targets.size(); ++i)
    look.targets.at(i) = sound.MMConnectorX1->target(static_cast<MMConnectorX::Slot>(i));
}

}  // namespace

PanelLook look_at(test::TestPanel& panel) {
  PanelLook look;
  look_at_state(panel, look);
  look_at_list(panel, look);
  look_at_sound(panel, look);
  look_at_player(panel.controls, look);
  look_at_board(panel, look);
  look_at_displays(panel.program.sound, look);
  return look;
}

std::vector<std::string> transport_calls(const test::FakeSound& sound) {
  return sound.calls_of({"AudioFile(0)", "AudioFile(1)", "Pitch(0)", "Pitch(1)", "WaveMixer", "WaveOut", "MixTimer"});
}

}  // namespace tandem::model

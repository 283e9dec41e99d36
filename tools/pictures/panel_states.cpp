#include "tools/pictures/panel_states.h"

#include <array>
#include <string>
#include <utility>

#include "controls/panel_groups.h"
#include "controls/panel_sizes.h"
#include "shaping/analyser_board.h"

namespace tandem {

namespace {

constexpr std::int32_t kLength = 225'000;  // milliseconds, of the song that plays

struct Song {
  const char* path;
  std::int32_t seconds;
};
constexpr Song kSongs[] = {{"Luz do Norte/Amanhecer.mp3", 271},
                           {"Luz do Norte/Ponte de Ferro.mp3", 362},
                           {"Low Tide/Salt Air.mp3", 198},
                           {"Low Tide/Harbour.mp3", 225},
                           {"Low Tide/Paper Boats.mp3", 252},
                           {"Kestrel Five/Slow Signal.wav", 320},
                           {"Kestrel Five/Copper Wire.wav", 178},
                           {"Marea/Ola Verde.mp3", 231},
                           {"Marea/Faro.mp3", 280},
                           {"Glass Garden/Winter Sun (Extended Mix).mp3", 418},
                           {"Glass Garden/Lanterns.mp3", 301},
                           {"Glass Garden/Cold Water.mp3", 263}};

std::string line_of(int number, const char* path) {
  return (number < 10 ? "0" : "") + std::to_string(number) + " - /home/ana/Music/" + path;
}

void show_displays(SoundGraph& sound, bool spectrum, bool meters, bool scope) {
  const auto show = [](MMDisplayX& display, bool shown) {
    display.put_Enabled(shown);
    display.put_Visible(shown);
  };
  show(*sound.MMSpectrum1, spectrum);
  for (MMDisplayX* meter :
       std::initializer_list<MMDisplayX*>{sound.MMMeterX1.get(), sound.MMMeterX2.get(), sound.MMLevelX1.get()})
    show(*meter, meters);
  show(*sound.MMOscopeX1, scope);
}

void light_lead(PanelControls& c, std::size_t choice) {
  for (std::size_t i = 0; i < kLeadTimes.size(); ++i)
    (c.*kLeadTimes[i].lamp).LEDColor = i == choice ? kLeadLit : kLeadDark;
}

void put_list(PanelStateParts& p) {
  int number = 0;
  for (const Song& song : kSongs) {
    p.controls.PlayList.AddItem(line_of(++number, song.path));
    p.mix.lengths.push_back(song.seconds * 1000);
  }
  p.controls.PlayList.put_ListIndex(3);
}

void put_equalizer(PanelControls& c) {
  constexpr int kGains[] = {5, 6, 4, 2, 0, -1, -2, -2, 0, 1, 2, 3, 4, 5, -12};
  for (std::size_t i = 0; i < kBands; ++i) {
    c.sl0[i].Position = kGains[i];
    c.dbLabel0[i].Caption = (kGains[i] >= 0 ? " " : "") + std::to_string(kGains[i]);
  }
}

void put_board(PanelControls& c) {
  constexpr std::array<bool, 5> kLit{false, true, true, true, false};
  for (std::size_t i = 0; i < kOptionLamps.size(); ++i) (c.*kOptionLamps[i]).LEDColor = kLit[i] ? clLime : clGreen;
  c.MMLEDX6.LEDColor = clYellow;
}

void put_playing(PanelStateParts& p) {
  PanelControls& c = p.controls;
  c.SongLabel.Caption = "HARBOUR.MP3";
  c.LblPosition.Caption = "02:17";
  c.LblTempTot.Caption = "03:45";
  c.ClockLabel.Caption = "21:48";
  c.MeterVol.Progress = 78;
  c.Volume.Value = 25559;
  c.Slider1.put_maximum(kLength);
  c.Slider1.Position = 137'000;
  c.PLAY.Picture = 1;
  c.STOPBtn.Picture = 4;
  p.mix.counted = SoundingSong{3, "Harbour.mp3", 137'000, kLength};
  p.mix.mix_at = kLength - 2500;
}

void show_equalizer_panel(PanelControls& c) {
  c.PlayList.Visible = false;
  for (Button* key : {&c.UpList, &c.DownList, &c.LoadList, &c.SaveList}) key->Visible = false;
  c.MMPanelX1[0].Visible = true;
  c.ShowPlayList.BackColor = clBlue;
}

void put_base(PanelStateParts& p) {
  put_list(p);
  put_playing(p);
  put_equalizer(p.controls);
  put_board(p.controls);
  p.sound.MMSpectrum1->put(SpectrumSetting::Window, 1);
  p.sound.MMSpectrum1->put(SpectrumSetting::Gain, 1);
  show_displays(p.sound, true, false, false);
}

void put_full_equalizer(PanelStateParts& p) {
  put_base(p);
  show_equalizer_panel(p.controls);
}

void put_full_playlist(PanelStateParts& p) {
  put_base(p);
  p.controls.PlayList.put_ListIndex(9);
  p.controls.SongLabel.Caption = "WINTER SUN (EX";
  p.controls.LblTempTot.Caption = "06:58";
}

void put_needles(PanelStateParts& p) {
  put_full_equalizer(p);
  show_displays(p.sound, false, true, false);
  p.controls.MMSwitchX1.Position = 1;
}

void put_scope(PanelStateParts& p) {
  put_full_equalizer(p);
  show_displays(p.sound, false, false, true);
  p.controls.MMSwitchX1.Position = 2;
}

void put_board_open(PanelStateParts& p) {
  put_full_equalizer(p);
  p.controls.Painel.Height = kBoardHeight;
  p.controls.ShowControls.BackColor = clLime;
  p.controls.MMLEDX6.LEDColor = clOlive;
  AnalyserBoard(p.controls, p.sound).click_default();
}

void put_compact(PanelStateParts& p) {
  put_base(p);
  p.controls.Painel.Height = kSmallHeight;
  p.controls.Painel.Width = kSmallWidth;
}

void put_pitch_mode(PanelStateParts& p) {
  put_full_equalizer(p);
  PanelControls& c = p.controls;
  c.MeterVol.Visible = false;
  for (Lamp* lamp : {&c.LED1, &c.LED2, &c.LED3}) lamp->Visible = true;
  c.LED3.LEDColor = clRed;
  c.INDIC.Caption = "PITCH +02";
  c.INDIC.LEDColor = clAqua;
  c.SliderP.Position = 10;
}

void put_stopped(PanelStateParts& p) {
  put_full_equalizer(p);
  PanelControls& c = p.controls;
  c.LblPosition.Caption = "00:00";
  c.MeterVol.Progress = 52;
  c.Volume.Value = 17039;
  c.Slider1.Position = 0;
  c.PLAY.Picture = 0;
  c.STOPBtn.Picture = 5;
  c.PAUSE.BackColor = clYellow;
  c.PAUSE.Picture = 3;
  c.BufferSwitch.Position = 1;
  c.Bypass.Position = 0;
  light_lead(c, 1);
  p.mix.counted.reset();
  p.mix.mix_at.reset();
}

// Two songs sound while a skipped one runs out.
void put_next_disabled(PanelStateParts& p) {
  put_base(p);
  PanelControls& c = p.controls;
  c.PlayList.put_ListIndex(4);
  for (Button* key : {&c.NextBtn, &c.UpList, &c.DownList}) key->Enabled = false;
  c.NextBtn.BackColor = clSilver;
  c.SongLabel.Caption = "PAPER BOATS.MP3";
  c.LblTempTot.Caption = "04:12";
  p.mix.other = SoundingSong{4, "Paper Boats.mp3", 2'000, 252'000};
  p.mix.skipped = true;
}

void put_mix(PanelStateParts& p) {
  put_base(p);
  PanelControls& c = p.controls;
  light_lead(c, 3);
  c.PlayList.put_ListIndex(4);
  c.SongLabel.Caption = "PAPER BOATS.MP3";
  c.LblPosition.Caption = "03:43";
  c.LblTempTot.Caption = "04:12";
  c.Slider1.Position = 223'000;
  p.mix.counted = SoundingSong{3, "Harbour.mp3", 223'000, kLength};
  p.mix.other = SoundingSong{4, "Paper Boats.mp3", 1'500, 252'000};
  p.mix.mix_at = kLength - 3500;
}

void put_factory_spectrum(PanelStateParts& p) {
  MMSpectrumX& spectrum = *p.sound.MMSpectrum1;
  using enum SpectrumSetting;
  const std::pair<SpectrumSetting, int> kFactory[] = {{Window, 1},     {Gain, 1},      {LogAmp, 0},
                                                      {SolidBars, 1},  {Decay, 7},     {DrawInactive, 0},
                                                      {PeakDelay, 25}, {PeakSpeed, 1}, {ReferenceFrequency, 500}};
  for (const auto& [setting, value] : kFactory) spectrum.put(setting, value);
}

// What a newcomer sees with the first songs.
void put_factory(PanelStateParts& p) {
  put_base(p);
  put_factory_spectrum(p);
}

// The same with its board, whose scales, switches and lamps stand as the factory settings have them.
void put_factory_board(PanelStateParts& p) {
  put_factory(p);
  PanelControls& c = p.controls;
  for (const auto lamp : kOptionLamps) (c.*lamp).LEDColor = clGreen;
  c.MMLEDX6.LEDColor = clOlive;
  c.Painel.Height = kBoardHeight;
  c.ShowControls.BackColor = clLime;
}

// What a newcomer sees first.
void put_list_empty(PanelStateParts& p) {
  put_factory_spectrum(p);
  show_displays(p.sound, true, false, false);
  p.controls.LblPosition.Caption = "00:00";
  p.controls.LblTempTot.Caption = "00:00";
  p.controls.ClockLabel.Caption = "21:48";
}

}  // namespace

const std::vector<NamedState>& named_states() {
  static const std::vector<NamedState> kStates = {{"full-equalizer", put_full_equalizer},
                                                  {"full-playlist", put_full_playlist},
                                                  {"full-vu", put_needles},
                                                  {"full-scope", put_scope},
                                                  {"board-open", put_board_open},
                                                  {"compact", put_compact, true},
                                                  {"pitch-mode", put_pitch_mode},
                                                  {"stopped", put_stopped, false, 0, false},
                                                  {"next-disabled", put_next_disabled},
                                                  {"mix", put_mix},
                                                  {"factory", put_factory},
                                                  {"factory-board", put_factory_board},
                                                  {"list-empty", put_list_empty, false, 0, false},
                                                  {"list-drop", put_base, false, 3}};
  return kStates;
}

}  // namespace tandem

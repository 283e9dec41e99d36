// Every control of the panel by its own name, with its design values (places, tips and keys: layout/). Made once,
// before start-up; UI thread only.
#pragma once

#include <array>
#include <cstddef>

#include "base/timer_queue.h"
#include "controls/file_dialog.h"
#include "controls/kinds/button.h"
#include "controls/kinds/dial.h"
#include "controls/kinds/lamp.h"
#include "controls/kinds/list_box.h"
#include "controls/kinds/slider.h"
#include "controls/kinds/spinner.h"
#include "controls/plain_timer.h"
#include "controls/window_frame.h"

namespace tandem {

inline constexpr std::size_t kBands = 15;
inline constexpr Colour kNextRest = 0x0040C0;    // NextBtn before the first skip
inline constexpr Colour kNextAfter = 0xFF8080;   // NextBtn once a skipped song has run out
inline constexpr Colour kKeyNeutral = 0x59524C;  // keys whose back colour says nothing
inline constexpr Colour kClockOrange = 33023;

// A slider of the equalizer: -12 .. 12 dB.
struct BandSlider : Slider {
  BandSlider() : Slider(-12, 12, NotifyOnPut::Always) {}
};
struct GainLabel : Label {
  GainLabel() : Label(" 0") {}
};

struct PanelControls {
  PanelControls(FileDialog& dialog, TimerQueue& timers) : TimerDelay(timers, 1500), CommonDialog(dialog) {
    // The list is in front and the read-out shows the volume.
    MMPanelX1[0].Visible = false;
    for (Lamp* sign : {&LED1, &LED2, &LED3}) sign->Visible = false;
    for (ListBox* hidden : {&ListAux, &ListAux2}) hidden->Visible = false;
  }

  WindowFrame Painel;
  Picture Image1;

  // The black display panel.
  std::array<Panel, 2> MMPanelX1{Panel("10 BANDS EQUALIZER"), Panel()};
  LedLabel SongLabel{15, clWhite};
  LedLabel LblPosition{5, clLime};
  LedLabel LblTempTot{5, clWhite};
  LedLabel ClockLabel{5, kClockOrange};
  LedLabel MMLEDLABELX1{5, 0xC4B9A9, "SONG:"};
  LedLabel MMLEDLABELX2{8, 0xC4B9A9, "COUNTER:"};
  LedLabel MMLEDLABELX3{5, 0xC4B9A9, "TIME:"};
  LedLabel INDIC{9, clYellow, "VOLUME"};
  Gauge MeterVol{100};
  Lamp LED1{clMaroon};
  Lamp LED2{clTeal};
  Lamp LED3{clMaroon};

  // Transport. The faces: 0 PLAY at rest, 1 active; 2 PAUSE at rest, 3 engaged; 4 STOPBtn at rest, 5 active.
  Button PLAY{kKeyNeutral, "", 0};
  Button PAUSE{clOlive, "", 2};
  Button STOPBtn{kKeyNeutral, "", 5};
  Button NextBtn{kNextRest};
  Button LoadSong{clGrey, "SONG"};
  Slider Slider1{0, 100, NotifyOnPut::Never};
  Wheel Volume{32768, 32768};

  // Automatic mix.
  Lamp AMLedOff{kLeadDark};
  Lamp AMLed1{kLeadDark};
  Lamp AMLed2{kLeadLit};
  Lamp AMLed3{kLeadDark};
  Switch BufferSwitch{2, 0, NotifyOnPut::OnChange};
  Switch Bypass{2, 1, NotifyOnPut::Never};

  // Pitch.
  Slider SliderP{-20, 20, NotifyOnPut::Always, 10};
  Button Command2{clSilver};
  PlainTimer TimerDelay;

  // Equalizer.
  std::array<BandSlider, kBands> sl0;
  std::array<GainLabel, kBands> dbLabel0;

  // Song list. ListAux is scratch, ListAux2 the hidden twin of PlayList.
  ListBox PlayList;
  ListBox ListAux;
  ListBox ListAux2;
  Button UpList{kKeyNeutral};
  Button DownList{kKeyNeutral};
  Button LoadList{kKeyNeutral, "Open"};
  Button SaveList{kKeyNeutral, "Save"};
  Button ShowPlayList{clAqua, "Playlist"};
  Button ShowControls{clGreen, "Controls"};
  FileDialog& CommonDialog;

  // The analyser's board.
  Lamp MMLEDX1{clGreen};
  Lamp MMLEDX2{clGreen};
  Lamp MMLEDX3{clGreen};
  Lamp MMLEDX4{clGreen};
  Lamp MMLEDX5{clGreen};
  Lamp MMLEDX6{clOlive};
  Spinner MMLEDSpin1{2, 1, 16, 7, 1};
  Spinner MMLEDSpin2{4, 8, 2048, 512, 0};
  Spinner MMLEDSpin3{3, 1, 200, 20, 0};
  Spinner MMLEDSpin4{2, 0, 50, 25, 1};
  Spinner MMLEDSpin5{2, 0, 5, 1, 1};
  Spinner MMLEDSpin6{2, 1, 16, 1, 0};
  Spinner MMLEDSpin7{4, 50, 22050, 500, 1};  // four digits for five: on purpose
  Spinner MMLEDSpin8{2, 0, 50, 1, 1};
  Switch MMSwitch1{6, 3, NotifyOnPut::Always};
  Switch MMSwitch2{7, 1, NotifyOnPut::Always};
  Switch MMSwitch3{4, 1, NotifyOnPut::Always};
  Switch MMSwitch4{4, 1, NotifyOnPut::Always};
  Switch MMSwitchX1{3, 0, NotifyOnPut::Always};
};

}  // namespace tandem

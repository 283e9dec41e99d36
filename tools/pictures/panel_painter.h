// The whole panel from one set of looks, for pictures and tests; the window paints its controls one by one. UI thread.
#pragma once

#include <QPainter>
#include <QString>
#include <array>

#include "layout/panel_layout.h"
#include "paint/controls/fader.h"
#include "paint/controls/key.h"
#include "paint/controls/knob.h"
#include "paint/controls/lamps.h"
#include "paint/controls/song_list.h"
#include "paint/controls/spinner.h"
#include "paint/displays/level_bar.h"
#include "paint/displays/needle_meter.h"
#include "paint/displays/oscilloscope.h"
#include "paint/displays/spectrum.h"
#include "paint/text/led_label.h"

namespace tandem {

enum class VisualDisplay { None, Spectrum, Needles, Oscilloscope };

struct DisplayState {
  LedLabelState song;
  LedLabelState position;
  LedLabelState total;
  LedLabelState read_out;
  LedLabelState clock;
  bool pitch_mode = false;  ///< pitch lamps instead of the gauge
  double gauge_percent = 0;
  int pitch = 0;  ///< its sign lights a lamp
  double hover = 0;
};

struct TransportState {
  SliderState position;
  KeyState play, pause, stop, next, load;
  WheelState volume;
};

struct MixState {
  std::array<LampState, 4> lead;
  RotaryState meter;
  SlideSwitchState buffer, bypass;
  KeyState show_list, show_board;
  FaderState pitch;
  InteractionState reset_pitch;
};

struct VisualState {
  VisualDisplay display = VisualDisplay::None;
  SpectrumStyle style;
  SpectrumPicture spectrum;
  NeedlePicture left_needle, right_needle;
  LevelPicture level;
  ScopePicture scope;
};

struct EqualizerState {
  std::array<FaderState, 15> bands;
  std::array<QString, 15> gains;  ///< the texts of the gain windows
};

struct ListState {
  SongListState songs;
  KeyState up, down, open, save;
};

struct BoardState {
  std::array<LampState, 6> lamps;
  std::array<RotaryState, 4> switches;
  std::array<SpinnerState, 8> spinners;  ///< from left to right
};

struct PanelState {
  WindowState window;
  InteractionState minimise, close;
  DisplayState display;
  TransportState transport;
  MixState mix;
  VisualState visual;
  EqualizerState equalizer;
  ListState list;
  BoardState board;
};

/// The names of the board's spinners from left to right, as BoardState has them.
inline constexpr std::array<std::string_view, 8> kSpinnerNames = {
    "MMLEDSpin7", "MMLEDSpin2", "MMLEDSpin3", "MMLEDSpin6", "MMLEDSpin1", "MMLEDSpin5", "MMLEDSpin4", "MMLEDSpin8"};

void paint_panel(QPainter& painter, const PanelState& look);

/// The contents of the black display panel and its shine, over the background.
void paint_display_panel(QPainter& painter, const DisplayState& look);

/// The contents of the display area and its shine, over the background.
void paint_visual(QPainter& painter, const VisualState& look);

}  // namespace tandem

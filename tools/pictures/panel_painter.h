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

struct DisplayLook {
  LedLabelLook song;
  LedLabelLook position;
  LedLabelLook total;
  LedLabelLook read_out;
  LedLabelLook clock;
  bool pitch_mode = false;  ///< pitch lamps instead of the gauge
  double gauge_percent = 0;
  int pitch = 0;  ///< its sign lights a lamp
  double hover = 0;
};

struct TransportLook {
  SliderLook position;
  KeyLook play, pause, stop, next, load;
  WheelLook volume;
};

struct MixLook {
  std::array<LampLook, 4> lead;
  RotaryLook meter;
  SlideSwitchLook buffer, bypass;
  KeyLook show_list, show_board;
  FaderLook pitch;
  Touch reset_pitch;
};

struct VisualLook {
  VisualDisplay display = VisualDisplay::None;
  SpectrumStyle style;
  SpectrumPicture spectrum;
  NeedlePicture left_needle, right_needle;
  LevelPicture level;
  ScopePicture scope;
};

struct EqualizerLook {
  std::array<FaderLook, 15> bands;
  std::array<QString, 15> gains;  ///< the texts of the gain windows
};

struct ListLook {
  SongListLook songs;
  KeyLook up, down, open, save;
};

struct BoardLook {
  std::array<LampLook, 6> lamps;
  std::array<RotaryLook, 4> switches;
  std::array<SpinnerLook, 8> spinners;  ///< from left to right
};

struct PanelLook {
  WindowState window;
  Touch minimise, close;
  DisplayLook display;
  TransportLook transport;
  MixLook mix;
  VisualLook visual;
  EqualizerLook equalizer;
  ListLook list;
  BoardLook board;
};

/// The names of the board's spinners from left to right, as BoardLook has them.
inline constexpr std::array<std::string_view, 8> kSpinnerNames = {
    "MMLEDSpin7", "MMLEDSpin2", "MMLEDSpin3", "MMLEDSpin6", "MMLEDSpin1", "MMLEDSpin5", "MMLEDSpin4", "MMLEDSpin8"};

void paint_panel(QPainter& painter, const PanelLook& look);

/// The contents of the black display panel and its shine, over the background.
void paint_display_panel(QPainter& painter, const DisplayLook& look);

/// The contents of the display area and its shine, over the background.
void paint_visual(QPainter& painter, const VisualLook& look);

}  // namespace tandem

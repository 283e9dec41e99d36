// The one table of the panel's geometry and texts. Lengths are px at 100 % from the window's top left corner.
#pragma once

#include <QRect>
#include <QSize>
#include <span>
#include <string_view>

#include "layout/rotary_place.h"

namespace tandem {

enum class WindowSize { Full, Compact, Board };

/// What the background depends on.
struct WindowState {
  WindowSize size = WindowSize::Full;
  bool song_list = true;  ///< the list lies in front, else the equalizer
  bool round = true;      ///< its corners, where the desktop shows what lies under them
  bool operator==(const WindowState&) const = default;
};

QSize window_size(WindowSize size);

enum class ControlKind {
  Grip,
  ChromeButton,
  GlassPanel,
  Picture,
  LedLabel,
  Gauge,
  PitchLamp,
  Slider,
  Key,
  Wheel,
  Caption,
  LeadLamp,
  Rotary,
  SlideSwitch,
  Fader,
  Stud,
  Display,
  BevelledPanel,
  GainWindow,
  SongList,
  LampButton,
  Spinner,
  NotDrawn,
};

/// Where a control belongs: a group is shown or hidden as one.
enum class ControlGroup { Chrome, Display, Transport, Mix, Visual, Equalizer, List, Board, Hidden };

struct ControlBox {
  std::string_view name;
  int x;
  int y;
  int w;
  int h;
  ControlKind kind;
  ControlGroup group;
  std::string_view caption;
  int tab;                      ///< place in the tab chain, 0 = none
  std::string_view tip;         ///< blanks belong to it; empty = no tip
  std::string_view accessible;  ///< a text in round brackets is no name of its own
  int count = 0;                ///< cells of a label, digits of a spinner
  int pitch = 0;                ///< dot pitch of a label

  [[nodiscard]] QRect box() const { return {x, y, w, h}; }
};

/// All controls in the order of the panel.
std::span<const ControlBox> panel_layout();

/// A control by its exact name; a name that is not in the table is a programming error and ends the program.
const ControlBox& control_box(std::string_view name);
/// The same for "family(index)".
const ControlBox& control_box(std::string_view family, int index);

/// What the needle meters paint: their boxes overlap the level bar by 1 px, so each leaves that px out.
QRectF left_meter_box();
QRectF right_meter_box();

/// What the mouse may press: the box, for lamp buttons lamp and caption together.
QRect hit_box(const ControlBox& control);

/// Minimise and Close hang on the right edge of the window.
QRect chrome_box(const ControlBox& control, WindowSize size);

/// Where a rotary switch (MMSwitchX1, MMSwitch1..4) has its knob and captions.
RotaryPlace rotary_place(const ControlBox& control);

/// A caption that a switch prints beside a position; pressing it chooses the position.
struct PositionCaption {
  std::string_view control;
  int position;
  std::string_view caption;
  double x;
  double y;
  double w;
  double h;
  double angle;  ///< of the pointer, degrees clockwise from 12 o'clock; 0 at slide switches

  [[nodiscard]] QRectF box() const { return {x, y, w, h}; }
};

std::span<const PositionCaption> position_captions();
/// Those of one control, in the order of their positions.
std::span<const PositionCaption> position_captions(std::string_view control);

}  // namespace tandem

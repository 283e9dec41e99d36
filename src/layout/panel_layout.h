// The one table of the panel's geometry and texts. Lengths are px at 100 % from the window's top left corner.
// Constants; any thread.
#pragma once

#include <QRect>
#include <QSize>
#include <span>
#include <string_view>

#include "layout/control_box.h"
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

// One row of the table of the panel's geometry and texts. Lengths are px at 100 % from the window's top left corner.
// Values; any thread.
#pragma once

#include <QRect>
#include <string_view>

namespace tandem {

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
  int tab;               ///< place in the tab chain, 0 = none
  std::string_view tip;  ///< blanks belong to it; empty = no tip
  /// The name for assistive technology. "<...>" and all after it stand for the item's value, whose change is announced
  /// as a change of the name too; a text in round brackets is no name of its own.
  std::string_view accessible;
  int count = 0;  ///< cells of a label, digits of a spinner
  int pitch = 0;  ///< dot pitch of a label

  [[nodiscard]] QRect box() const { return {x, y, w, h}; }
};

}  // namespace tandem

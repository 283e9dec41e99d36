#include "layout/panel_layout.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace tandem {

namespace {

constexpr int kBoardKnobRadius = 22;

}  // namespace

QSize window_size(WindowSize size) {
  switch (size) {
    case WindowSize::Compact:
      return {262, 165};
    case WindowSize::Board:
      return {607, 426};
    default:
      return {607, 258};
  }
}

const ControlBox& control_box(std::string_view name) {
  const auto all = panel_layout();
  const auto found = std::find_if(all.begin(), all.end(), [name](const ControlBox& c) { return c.name == name; });
  if (found == all.end()) {
    std::fprintf(stderr, "no control of the name %.*s\n", static_cast<int>(name.size()), name.data());
    std::abort();
  }
  return *found;
}

const ControlBox& control_box(std::string_view family, int index) {
  return control_box(std::string(family) + "(" + std::to_string(index) + ")");
}

QRectF left_meter_box() { return QRectF(control_box("MMMeterX1").box()).adjusted(0, 0, -1, 0); }

QRectF right_meter_box() { return QRectF(control_box("MMMeterX2").box()).adjusted(1, 0, 0, 0); }

QRect hit_box(const ControlBox& control) {
  if (control.kind == ControlKind::LampButton) return {control.x - 2, control.y - 5, 84, 21};
  return control.box();
}

QRect chrome_box(const ControlBox& control, WindowSize size) {
  return control.box().translated(window_size(size).width() - window_size(WindowSize::Full).width(), 0);
}

RotaryPlace rotary_place(const ControlBox& control) {
  if (control.group == ControlGroup::Mix) return {{27, 227}, 18, 60, 15};
  return {QPointF(control.x + 32, control.y + 60), kBoardKnobRadius, control.x + 74.0, 13};
}

std::span<const PositionCaption> position_captions(std::string_view control) {
  const auto all = position_captions();
  const auto is_mine = [control](const PositionCaption& c) { return c.control == control; };
  const auto first = std::find_if(all.begin(), all.end(), is_mine);
  const auto last = std::find_if_not(first, all.end(), is_mine);
  return {first, last};
}

}  // namespace tandem

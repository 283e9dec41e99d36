// The parts of the layout table, by place on the panel; read through panel_layout.h. Constants; any thread.
#pragma once

#include <span>

#include "layout/control_box.h"

namespace tandem {

std::span<const ControlBox> layout_left();
std::span<const ControlBox> layout_right();
std::span<const ControlBox> layout_equalizer();
std::span<const ControlBox> layout_board();

}  // namespace tandem

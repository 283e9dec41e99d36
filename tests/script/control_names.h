// Every control of the panel by its own name; arrays as "sl0(3)".
#pragma once

#include <map>
#include <string>
#include <variant>

#include "controls/panel_controls.h"

namespace tandem {

using AnyControl =
    std::variant<Button*, Panel*, Label*, Lamp*, LedLabel*, Gauge*, Slider*, Wheel*, Switch*, Spinner*, ListBox*>;

std::map<std::string, AnyControl> named_controls(PanelControls& controls);

}  // namespace tandem

// The glowing controls. A lamp's state is nothing but its LEDColor. UI thread.
#pragma once

#include <cstdint>
#include <string>

#include "base/colours.h"
#include "controls/kinds/control.h"

namespace tandem {

class Lamp : public Control {  // lamp, lamp button or lead-time LED
 public:
  explicit Lamp(Colour colour) : LEDColor(view_changed, colour) {}
  Property<Colour> LEDColor;
  Notification<> click;
};

class LedLabel : public Control {  // dot-matrix text
 public:
  LedLabel(int cells, Colour colour, std::string caption = {})
      : NumChars(cells), Caption(view_changed, std::move(caption)), LEDColor(view_changed, colour) {}
  const int NumChars;
  Property<std::string> Caption;
  Property<Colour> LEDColor;
  Property<bool> Scrolling{view_changed, false};
  static constexpr int ScrollSpeed = 200;  // milliseconds a cell
  Notification<> click;
};

class Gauge : public Control {  // bar of 0 to 100 percent
 public:
  explicit Gauge(std::int32_t progress) : Progress(view_changed, progress) {}
  Property<std::int32_t> Progress;
  static constexpr std::int32_t Point2 = 75;  // percent from which the bar changes its colour
  Notification<> click;
};

}  // namespace tandem

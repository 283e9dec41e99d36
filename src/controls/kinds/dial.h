// The turning controls: the volume wheel and the rotary or two-position switches. UI thread.
#pragma once

#include "controls/kinds/valued_control.h"

namespace tandem {

class Wheel : public ValuedControl {
 public:
  Wheel(std::int32_t maximum, std::int32_t value) : ValuedControl(0, maximum, value, NotifyOnPut::Always) {}
  ValueProperty Value{*this};
};

class Switch : public ValuedControl {
 public:
  Switch(std::int32_t positions, std::int32_t position, NotifyOnPut notify)
      : ValuedControl(0, positions - 1, position, notify) {}
  ValueProperty Position{*this};
  std::int32_t NumPositions() const { return maximum() + 1; }
};

}  // namespace tandem

// A number in LED digits with an up and a down button. UI thread.
#pragma once

#include "controls/kinds/valued_control.h"

namespace tandem {

class Spinner : public ValuedControl {
 public:
  // With step 0 the buttons do not change the value themselves, they only raise their events.
  Spinner(int digits, std::int32_t minimum, std::int32_t maximum, std::int32_t value, std::int32_t step)
      : ValuedControl(minimum, maximum, value, NotifyOnPut::Always), Digits(digits), Step(step) {}

  ValueProperty Value{*this};
  const int Digits;
  const std::int32_t Step;

  Notification<> up_click;
  Notification<> down_click;

  // The user presses a button: the value takes a step, then the button's event follows.
  void user_up() { press_button(Step, up_click); }
  void user_down() { press_button(-Step, down_click); }

 private:
  void press_button(std::int32_t step, const Notification<>& event) {
    if (step != 0) move(value() + step);
    event.raise();
  }
};

}  // namespace tandem

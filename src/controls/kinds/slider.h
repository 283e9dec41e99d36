// A slider or fader. The user's press, changes and release come in that order. UI thread.
#pragma once

#include "controls/kinds/valued_control.h"

namespace tandem {

class Slider : public ValuedControl {
 public:
  Slider(std::int32_t minimum, std::int32_t maximum, NotifyOnPut notify, std::int32_t line_size = 1)
      : ValuedControl(minimum, maximum, minimum > 0 ? minimum : 0, notify), LineSize(line_size) {}

  ValueProperty Position{*this};
  const std::int32_t LineSize;

  Notification<> press;
  Notification<> release;

  bool held() const { return held_; }
  // Number of user releases so far, for callers that poll.
  std::uint32_t releases() const { return releases_; }
  // What the user does. A release without a press, or a second press, does nothing.
  void user_press();
  void user_release();

 private:
  bool held_ = false;
  std::uint32_t releases_ = 0;
};

}  // namespace tandem

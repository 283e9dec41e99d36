// A control that holds a whole number within a range: slider, wheel, switch, spinner.
// A put outside the range is limited to it. UI thread.
#pragma once

#include <cstdint>

#include "controls/kinds/control.h"

namespace tandem {

class ValuedControl : public Control {
 public:
  ValuedControl(std::int32_t minimum, std::int32_t maximum, std::int32_t value, NotifyOnPut notify)
      : minimum_(minimum), maximum_(maximum), value_(value), notify_(notify) {}

  Notification<> change;  // raised synchronously inside the put or the move

  std::int32_t value() const { return value_; }
  std::int32_t minimum() const { return minimum_; }
  std::int32_t maximum() const { return maximum_; }

  void put(std::int32_t value);
  void put_maximum(std::int32_t maximum);  // never notifies; limits the value
  void move(std::int32_t value);           // by the user: always notifies

 private:
  bool set(std::int32_t value);

  std::int32_t minimum_;
  std::int32_t maximum_;
  std::int32_t value_;
  NotifyOnPut notify_;
};

// The value under the name that it has on the control (Position, Value), put and read as a plain member.
class ValueProperty {
 public:
  explicit ValueProperty(ValuedControl& control) : control_(control) {}
  ValueProperty(const ValueProperty&) = delete;

  // NOLINTNEXTLINE(google-explicit-constructor): a property reads as its value
  operator std::int32_t() const { return control_.value(); }
  ValueProperty& operator=(std::int32_t value) {
    control_.put(value);
    return *this;
  }
  ValueProperty& operator=(const ValueProperty& other) { return *this = other.control_.value(); }

 private:
  ValuedControl& control_;
};

}  // namespace tandem

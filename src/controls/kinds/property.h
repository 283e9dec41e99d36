// A property of a control: a value that is put and read as if it were a plain member.
// UI thread only. A put that changes the value notifies the control's one view.
#pragma once

#include <utility>

#include "base/notification.h"

namespace tandem {

template <class T>
class Property {
 public:
  Property(const Notification<>& view_changed, T value) : view_changed_(view_changed), value_(std::move(value)) {}
  Property(const Property&) = delete;

  // NOLINTNEXTLINE(google-explicit-constructor): a property reads as its value
  operator const T&() const { return value_; }
  const T& get() const { return value_; }

  Property& operator=(T value) {
    if (value_ == value) return *this;
    value_ = std::move(value);
    view_changed_.raise();
    return *this;
  }
  Property& operator=(const Property& other) { return *this = other.value_; }

 private:
  const Notification<>& view_changed_;
  T value_;
};

}  // namespace tandem

// A high-resolution timer. UI thread.
#pragma once

#include <cstdint>

#include "base/notification.h"

namespace tandem {

class MMHiTimerX {
 public:
  virtual ~MMHiTimerX() = default;
  virtual std::int32_t Interval() const = 0;  // milliseconds; 0 stops the timer
  virtual void put_Interval(std::int32_t milliseconds) = 0;
  virtual bool Enabled() const = 0;
  virtual void put_Enabled(bool enabled) = 0;
  Notification<> tick;
};

}  // namespace tandem

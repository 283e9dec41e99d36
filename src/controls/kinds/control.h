// What every control has. UI thread only; a control stays where it was made.
#pragma once

#include "base/notification.h"
#include "controls/kinds/property.h"

namespace tandem {

class Control {
 public:
  Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  Notification<> view_changed;  // anything that the control shows has changed: for its one view

  Property<bool> Visible{view_changed, true};
  Property<bool> Enabled{view_changed, true};
};

// Whether a put from code raises the control's change notification. What the user moves always does.
enum class NotifyOnPut { Always, OnChange, Never };

}  // namespace tandem

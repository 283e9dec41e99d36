// The one way of all events to assistive technology. UI thread.
#pragma once

#include <QAccessible>

namespace tandem {

void post_accessibility_event(QAccessibleEvent& event);

// Another handler in place of Qt's, which gets nothing without a desktop; returns the one before. For tests.
using AccessibilityHandler = void (*)(QAccessibleEvent*);
AccessibilityHandler set_accessibility_handler(AccessibilityHandler handler);

}  // namespace tandem

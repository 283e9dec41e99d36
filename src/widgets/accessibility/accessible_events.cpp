#include "widgets/accessibility/accessible_events.h"

#include <utility>

namespace tandem {

namespace {
AccessibilityHandler handles = QAccessible::updateAccessibility;
}

void post_accessibility_event(QAccessibleEvent& event) { handles(&event); }

AccessibilityHandler set_accessibility_handler(AccessibilityHandler handler) { return std::exchange(handles, handler); }

}  // namespace tandem

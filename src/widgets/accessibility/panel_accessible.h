// What assistive technology is told of the panel: role, name, value and actions of every item. UI thread.
#pragma once

#include <QAccessible>

namespace tandem {

class PanelItem;

// To be called once, before the window is made.
void install_accessibility();

// The item's value or state has changed under the user's hand.
void post_value_changed(PanelItem& item);

// Every event goes this way. Another listener in place of the toolkit's, which hears nothing without a desktop; returns
// the one before.
void post_accessibility_event(QAccessibleEvent& event);
using AccessibilityHandler = void (*)(QAccessibleEvent*);
AccessibilityHandler set_accessibility_handler(AccessibilityHandler listener);

}  // namespace tandem

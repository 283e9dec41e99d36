// What assistive technology is told of the panel: role, name, value and actions of every item. UI thread.
#pragma once

#include <QAccessible>

namespace tandem {

class PanelItem;

// To be called once, before the window is made.
void tell_accessibility_of_items();

// The item's value or state has changed under the user's hand.
void tell_value_of(PanelItem& item);

// Every event goes this way. Another listener in place of the toolkit's, which hears nothing without a desktop; returns
// the one before.
void tell_assistive(QAccessibleEvent& event);
using AssistiveListener = void (*)(QAccessibleEvent*);
AssistiveListener listen_instead(AssistiveListener listener);

}  // namespace tandem

// What assistive technology is told of the panel: role, name, value and actions of every item. UI thread.
#pragma once

namespace tandem {

class PanelItem;

// To be called once, before the window is made.
void tell_accessibility_of_items();

// The item's value or state has changed under the user's hand.
void tell_value_of(PanelItem& item);

}  // namespace tandem

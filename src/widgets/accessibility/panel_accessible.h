// What assistive technology learns of the panel: role, name, value and actions of every item. UI thread.
#pragma once

#include <QAccessible>

namespace tandem {

class PanelItem;

// To be called once, before the window is made.
void install_accessibility();

// The item's value or state has changed.
void post_value_changed(PanelItem& item);
void post_description_changed(PanelItem& item);

}  // namespace tandem

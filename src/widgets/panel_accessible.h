// What assistive technology is told of the panel: role, name, value and actions of every item. UI thread.
#pragma once

namespace tandem {

// To be called once, before the window is made.
void tell_accessibility_of_items();

}  // namespace tandem

// The panel's colours for what Qt draws beside the panel: menus, dialogs, boxes and tips. UI thread.
#pragma once

#include <QPalette>

namespace tandem {

QPalette panel_palette();

}  // namespace tandem

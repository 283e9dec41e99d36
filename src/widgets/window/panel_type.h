// The panel's letters for what Qt draws beside it: tips, menu and the program's own dialogs. UI thread.
#pragma once

namespace tandem {

// At the size that captions have in a window of that scale (1 = 100 %). Changes the fonts of the whole program.
void use_panel_type(double scale);

}  // namespace tandem

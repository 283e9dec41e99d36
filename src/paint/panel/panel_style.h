// The panel's look for what Qt draws itself: tips, menus, message boxes and dialogs. UI thread.
#pragma once

#include <QFont>
#include <QString>

namespace tandem {

/// The printed face at the size of the captions, for a panel of that scale (1 = 100 %).
QFont panel_font(double scale);

/// Style sheet of the application for a panel of that scale: plates, keys, lists and tips as the panel has them. It
/// goes with panel_palette() and panel_font().
QString panel_style_sheet(double scale);

}  // namespace tandem

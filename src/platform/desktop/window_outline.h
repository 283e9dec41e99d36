// For windows that draw their own shadow: which part is the window proper. UI thread.
#pragma once

#include <QRect>

class QWindow;

namespace tandem {

// `box`, in px of the window, is the visible frame: the rest takes no input, and window managers that support such
// margins place and snap by the box. The window must be mapped. On X11 the margins are the property
// _GTK_FRAME_EXTENTS, and the input region is that of the SHAPE extension.
void set_window_outline(QWindow& window, const QRect& box);

}  // namespace tandem

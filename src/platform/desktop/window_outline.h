// For windows that draw their own shadow: whether the desktop composites them, and which part is the window proper.
// UI thread.
#pragma once

#include <QRect>

class QWindow;

namespace tandem {

// Whether windows may be partly transparent: on Wayland always, on X11 while a compositing manager runs.
bool desktop_composites();

// `box`, in px of the window, is the visible frame: the rest takes no input, and window managers that support such
// margins place and snap by the box. The window must be mapped. On X11 the margins are the property
// _GTK_FRAME_EXTENTS, and the input region is that of the SHAPE extension 1.1.
void set_window_outline(QWindow& window, const QRect& box);

}  // namespace tandem

// Windows with a shadow of their own: whether the desktop shows it, and which part of the window is the window proper.
// UI thread.
#pragma once

#include <QRect>

class QWindow;

namespace tandem {

// Whether windows may be partly transparent: on Wayland always, on X11 while a compositing manager runs.
bool desktop_composites();

// `box`, px of the window, is what the user sees as the window: the rest takes no input, and window managers that know
// of such margins place and snap by the box. The window is on the desktop. On X11 the margins are the property
// _GTK_FRAME_EXTENTS, and the input region is that of the SHAPE extension 1.1.
void set_window_outline(QWindow& window, const QRect& box);

}  // namespace tandem

// Brings parts of a picture to the screen past Qt's repainting, which costs several times as much for the
// small boxes of a display that moves at every frame. UI thread.
#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QWidget>
#include <functional>
#include <span>

namespace tandem {

// Another way to the screen than Qt's: shows the boxes of what the whole window holds, in device pixels.
// False: it cannot, and nothing was shown.
using Present = std::function<bool(const QImage& picture, std::span<const QRect> boxes)>;

// Copies the `changed` boxes of `picture`, whose top left stands at `at`, into what the window keeps for the screen and
// shows them at once, through `present` where it can. Boxes are pixels of the picture, the picture and `at` device
// pixels. The picture is opaque and is what the window would paint there: it stays true when the window is painted
// again.
//
// False where that cannot be: the window is not on a screen yet or has been resized since, or its store is no image.
// Nothing is shown then, and the boxes are to be painted as usual.
bool draw_directly(const QWidget& window, const QImage& picture, const QPoint& at, std::span<const QRect> changed,
                   const Present& present);

}  // namespace tandem

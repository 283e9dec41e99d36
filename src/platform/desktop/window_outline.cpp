#include "platform/desktop/window_outline.h"

#include <xcb/shape.h>
#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QRegion>
#include <QWindow>
#include <string>

#include "platform/desktop/x_server.h"

namespace tandem {

namespace {

// Of the SHAPE extension 1.1.
void set_input_region(xcb_connection_t* server, xcb_window_t window, const xcb_rectangle_t& box) {
  const xcb_query_extension_reply_t* known = xcb_get_extension_data(server, &xcb_shape_id);
  if (known == nullptr || known->present == 0) return;
  xcb_shape_rectangles(server, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED, window, 0, 0, 1, &box);
}

xcb_rectangle_t device_box(const QRect& box, double scale) {
  const auto pixel = [scale](int at) { return static_cast<std::int16_t>(at * scale); };
  return {pixel(box.left()), pixel(box.top()), static_cast<std::uint16_t>(pixel(box.width())),
          static_cast<std::uint16_t>(pixel(box.height()))};
}

void set_extents(xcb_connection_t* server, xcb_window_t window, const QRect& box, const QSize& size, double scale) {
  const auto pixels = [scale](int length) { return static_cast<std::uint32_t>(length * scale); };
  const std::uint32_t extents[] = {pixels(box.left()), pixels(size.width() - box.right() - 1), pixels(box.top()),
                                   pixels(size.height() - box.bottom() - 1)};
  xcb_change_property(server, XCB_PROP_MODE_REPLACE, window, x_atom(server, "_GTK_FRAME_EXTENTS"), XCB_ATOM_CARDINAL,
                      32, 4, extents);
}

}  // namespace

void set_window_outline(QWindow& window, const QRect& box) {
  if (QGuiApplication::platformName().startsWith("wayland")) return window.setMask(box);  // there, of input alone
  xcb_connection_t* server = x_server();
  if (server == nullptr) return;
  const auto id = static_cast<xcb_window_t>(window.winId());
  set_extents(server, id, box, window.size(), window.devicePixelRatio());
  set_input_region(server, id, device_box(box, window.devicePixelRatio()));
  xcb_flush(server);
}

}  // namespace tandem

#include "platform/desktop/window_outline.h"

#include <xcb/xcb.h>
#include <xcb/xcbext.h>

#include <QGuiApplication>
#include <QRegion>
#include <QWindow>
#include <cstdlib>
#include <memory>
#include <string>

namespace tandem {

namespace {

template <class Reply>
using Answer = std::unique_ptr<Reply, decltype(&std::free)>;

xcb_connection_t* x_server() {
  if (QGuiApplication::platformName() != "xcb") return nullptr;
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 == nullptr ? nullptr : x11->connection();
}

xcb_atom_t atom(xcb_connection_t* server, const std::string& name) {
  const auto cookie = xcb_intern_atom(server, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
  const Answer<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(server, cookie, nullptr), &std::free);
  return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

// A compositing manager owns the selection _NET_WM_CM_Sn of its screen (Extended Window Manager Hints).
bool has_compositor(xcb_connection_t* server) {
  const auto cookie = xcb_get_selection_owner(server, atom(server, "_NET_WM_CM_S0"));
  const Answer<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(server, cookie, nullptr),
                                                      &std::free);
  return reply && reply->owner != XCB_NONE;
}

// The request ShapeRectangles of the SHAPE extension: one rectangle as the input region.
struct ShapeRectangles {
  std::uint8_t major_opcode = 0;  // xcb fills these three in
  std::uint8_t minor_opcode = 1;
  std::uint16_t length = 0;
  std::uint8_t operation = 0;  // set
  std::uint8_t kind = 2;       // input
  std::uint8_t ordering = 0;
  std::uint8_t unused = 0;
  std::uint32_t window = 0;
  std::int16_t x = 0;
  std::int16_t y = 0;
  xcb_rectangle_t rectangle{};
};
static_assert(sizeof(ShapeRectangles) == 24);

void set_input_region(xcb_connection_t* server, xcb_window_t window, const xcb_rectangle_t& box) {
  static xcb_extension_t shape = {"SHAPE", 0};
  const xcb_query_extension_reply_t* known = xcb_get_extension_data(server, &shape);
  if (known == nullptr || known->present == 0) return;
  ShapeRectangles request;
  request.window = window;
  request.rectangle = box;
  const xcb_protocol_request_t protocol = {1, &shape, request.minor_opcode, 1};
  iovec parts[3] = {{}, {}, {&request, sizeof(request)}};  // xcb needs room for two before the request
  xcb_send_request(server, 0, &parts[2], &protocol);
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
  xcb_change_property(server, XCB_PROP_MODE_REPLACE, window, atom(server, "_GTK_FRAME_EXTENTS"), XCB_ATOM_CARDINAL, 32,
                      4, extents);
}

}  // namespace

bool desktop_composites() {
  if (QGuiApplication::platformName().startsWith("wayland")) return true;
  xcb_connection_t* server = x_server();
  return server != nullptr && has_compositor(server);
}

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

#include "platform/desktop/x_server.h"

#include <QGuiApplication>

namespace tandem {

xcb_connection_t* x_server() {
  if (QGuiApplication::platformName() != "xcb") return nullptr;
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 == nullptr ? nullptr : x11->connection();
}

xcb_atom_t x_atom(xcb_connection_t* server, const std::string& name) {
  const auto cookie = xcb_intern_atom(server, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
  const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(server, cookie, nullptr));
  return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

}  // namespace tandem

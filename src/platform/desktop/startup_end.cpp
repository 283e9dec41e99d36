#include "platform/desktop/startup_end.h"

#include <xcb/xcb.h>

#include <QWindow>
#include <algorithm>
#include <cstddef>
#include <string_view>

#include "platform/desktop/x_server.h"

namespace tandem {

namespace {

std::string in_quotes(std::string_view text) {
  std::string result = "\"";
  for (const char character : text) {
    if (character == '"' || character == '\\') result += '\\';
    result += character;
  }
  return result + '"';
}

// In parts of 20 bytes, the last of which has the text's zero.
void broadcast(xcb_connection_t* server, xcb_window_t window, const std::string& text) {
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
  xcb_atom_t kind = x_atom(server, "_NET_STARTUP_INFO_BEGIN");
  for (std::size_t at = 0; at <= text.size(); at += sizeof(xcb_client_message_data_t)) {
    xcb_client_message_event_t part{};
    part.response_type = XCB_CLIENT_MESSAGE;
    part.format = 8;
    part.window = window;
    part.type = kind;
    std::copy_n(text.begin() + static_cast<std::ptrdiff_t>(at), std::min(sizeof part.data, text.size() - at),
                part.data.data8);
    xcb_send_event(server, 0, root, XCB_EVENT_MASK_PROPERTY_CHANGE, reinterpret_cast<const char*>(&part));
    kind = x_atom(server, "_NET_STARTUP_INFO");
  }
  xcb_flush(server);
}

}  // namespace

void report_startup_end(const QWindow& window, const std::string& id) {
  xcb_connection_t* server = x_server();
  if (server == nullptr || id.empty()) return;
  broadcast(server, static_cast<xcb_window_t>(window.winId()), "remove: ID=" + in_quotes(id));
}

}  // namespace tandem

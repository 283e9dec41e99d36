#include "platform/desktop/compositor_watch.h"

#include <xcb/xcb.h>
#include <xcb/xfixes.h>

#include <QGuiApplication>
#include <utility>

#include "platform/desktop/x_server.h"

namespace tandem {

namespace {

// A compositing manager owns the selection _NET_WM_CM_Sn of its screen (Extended Window Manager Hints). Qt's windows
// are on the first.
constexpr const char* kCompositorSelection = "_NET_WM_CM_S0";

bool has_owner(xcb_connection_t* server, xcb_atom_t selection) {
  const auto cookie = xcb_get_selection_owner(server, selection);
  const XcbReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(server, cookie, nullptr));
  return reply && reply->owner != XCB_NONE;
}

// The code of the event that reports a new owner or the loss of one; 0 if the server has none. Before anything else is
// asked of the extension a version must be agreed on: the newest, as Qt does, since the last one agreed on counts.
std::uint8_t ask_for_owners(xcb_connection_t* server, xcb_atom_t selection) {
  const xcb_query_extension_reply_t* known = xcb_get_extension_data(server, &xcb_xfixes_id);
  if (known == nullptr || known->present == 0) return 0;
  const XcbReply<xcb_xfixes_query_version_reply_t> version(xcb_xfixes_query_version_reply(
      server, xcb_xfixes_query_version(server, XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION), nullptr));
  if (!version) return 0;
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
  xcb_xfixes_select_selection_input(server, root, selection,
                                    XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                        XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                        XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
  return static_cast<std::uint8_t>(known->first_event + XCB_XFIXES_SELECTION_NOTIFY);
}

}  // namespace

CompositorWatch::CompositorWatch(std::function<void()> changed) : changed_(std::move(changed)) {
  if (QGuiApplication::platformName().startsWith("wayland")) {
    composites_ = true;
  } else {
    watch_x_server();
  }
}

CompositorWatch::~CompositorWatch() { qGuiApp->removeNativeEventFilter(this); }

// Asked in this order, so that no change is missed between the two.
void CompositorWatch::watch_x_server() {
  xcb_connection_t* server = x_server();
  if (server == nullptr) return;
  selection_ = x_atom(server, kCompositorSelection);
  event_ = ask_for_owners(server, selection_);
  composites_ = has_owner(server, selection_);
  if (event_ != 0) qGuiApp->installNativeEventFilter(this);
}

bool CompositorWatch::nativeEventFilter(const QByteArray& kind, void* event, qintptr*) {
  constexpr std::uint8_t kSentByAProgram = 0x80;
  if (kind != "xcb_generic_event_t") return false;
  if ((static_cast<xcb_generic_event_t*>(event)->response_type & ~kSentByAProgram) != event_) return false;
  const auto* owner = static_cast<xcb_xfixes_selection_notify_event_t*>(event);
  const bool composites = owner->owner != XCB_NONE;
  if (owner->selection == selection_ && std::exchange(composites_, composites) != composites) changed_();
  return false;
}

}  // namespace tandem

#include "platform/desktop/occlusion_watch.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QWindow>
#include <utility>

#include "platform/desktop/x_server.h"

namespace tandem {

namespace {

// Qt does not select these events itself; the events that it has selected are kept.
void ask_for_visibility(xcb_connection_t* server, xcb_window_t window) {
  const auto cookie = xcb_get_window_attributes(server, window);
  const XcbReply<xcb_get_window_attributes_reply_t> now(xcb_get_window_attributes_reply(server, cookie, nullptr));
  if (!now) return;
  const std::uint32_t mask = now->your_event_mask | std::uint32_t{XCB_EVENT_MASK_VISIBILITY_CHANGE};
  xcb_change_window_attributes(server, window, XCB_CW_EVENT_MASK, &mask);
  xcb_flush(server);
}

}  // namespace

OcclusionWatch::OcclusionWatch(QWindow& window, std::function<void(bool)> changed) : changed_(std::move(changed)) {
  xcb_connection_t* server = x_server();
  if (server == nullptr) return;
  window_ = static_cast<std::uint32_t>(window.winId());
  ask_for_visibility(server, window_);
  qGuiApp->installNativeEventFilter(this);
}

OcclusionWatch::~OcclusionWatch() { qGuiApp->removeNativeEventFilter(this); }

bool OcclusionWatch::nativeEventFilter(const QByteArray& kind, void* event, qintptr*) {
  constexpr std::uint8_t kSentByAProgram = 0x80;
  if (kind != "xcb_generic_event_t") return false;
  const auto* any = static_cast<xcb_generic_event_t*>(event);
  if ((any->response_type & ~kSentByAProgram) != XCB_VISIBILITY_NOTIFY) return false;
  const auto* visibility = static_cast<xcb_visibility_notify_event_t*>(event);
  const bool covered = visibility->state == XCB_VISIBILITY_FULLY_OBSCURED;
  if (visibility->window == window_ && std::exchange(covered_, covered) != covered) changed_(covered);
  return false;
}

}  // namespace tandem

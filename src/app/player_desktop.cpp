// The player as the desktop meets it: what its services read and do, the window brought to the front, the song's name.

#include <QApplication>
#include <QThread>
#include <QTimer>

#include "app/player.h"
#include "desktop/bus_texts.h"
#include "platform/desktop/startup_end.h"

namespace tandem {

namespace {

// Wayland lets a window come to the front only with what the desktop gave along with the request.
void use_token(const std::string& token) {
  if (!token.empty()) qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(token));
}

}  // namespace

void Player::join_desktop() {
  remote_.emplace(program_, PanelRemote::Hooks{[this] { user_action(); },
                                               [this](const std::vector<std::string>& paths) { intake_.drop(paths); },
                                               [this] { return !intake_.is_empty(); }});
  DesktopServices::Hooks hooks;
  hooks.raise = [this](const std::string& token) { come_to_front(token); };
  hooks.quit = [this] { QTimer::singleShot(0, window_.get(), [this] { close(); }); };
  hooks.named = [this](const std::string& name) { show_name(name); };
  services_.emplace(*remote_, std::move(hooks));
  menu_.emplace(
      *window_, *remote_,
      PanelMenu::Hooks{[this] { return window_->scale(); }, [this](double scale) { window_->set_scale(scale); },
                       [this] { return window_->greatest_scale(); }, [this] { close(); }});
}

void Player::watch_window() {
  presenter_ = std::make_unique<ShmPresenter>(*window_->windowHandle());
  occlusion_watch_ = std::make_unique<OcclusionWatch>(*window_->windowHandle(),
                                                      [this](bool covered) { window_->set_covered(covered); });
}

// Menus and dialogs hang on the window that would be made again, the portal's and that of the progress too: as long as
// there is one, the window stays. So does one that is minimised or on another workspace, which a new window would not
// be: it is made when the old one is seen again.
void Player::follow_compositor() {
  if (compositor_watch_->composites() == window_->composited() || !window_->exposed()) return;
  if (QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr) return;
  if (QThread::currentThread()->loopLevel() > 1 || !intake_.is_empty()) return;
  presenter_.reset();
  occlusion_watch_.reset();
  window_->set_covered(false);
  window_->set_composited(compositor_watch_->composites());
  watch_window();
}

void Player::come_to_front(const std::string& token) {
  use_token(token);
  window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized);
  window_->show();
  window_->raise();
  window_->activateWindow();
  report_startup_end(*window_->windowHandle(), token);
}

void Player::show_name(const std::string& name) {
  const QString song = QString::fromStdString(name);
  window_->setWindowTitle(song.isEmpty() ? QStringLiteral("Tandem") : song + " - Tandem");
  output_.put_stream_name(name.empty() ? "Tandem" : bus_text(name));
}

}  // namespace tandem

#include "desktop/desktop_services.h"

#include <utility>

#include "desktop/bus_texts.h"

namespace tandem {

DesktopServices::DesktopServices(PanelRemote& remote, Hooks hooks) : remote_(remote), hooks_(std::move(hooks)) {
  if (session_.bus() == nullptr) return;
  media_player_.emplace(session_.bus(), remote_,
                        MprisPlayer::Hooks{[this] { hooks_.raise({}); }, [this] { hooks_.quit(); }});
  application_.emplace(
      session_.bus(),
      ApplicationService::Hooks{[this](const std::string& token) { hooks_.raise(token); },
                                [this](const std::vector<std::string>& paths) { remote_.add_songs(paths); }});
  session_.attend();
}

void DesktopServices::update(std::int64_t now) {
  remote_.play_awaited();
  sleep_inhibitor_.hold(remote_.motion() == PanelRemote::Motion::Playing);
  follow_name();
  if (!media_player_ || session_.bus() == nullptr) return;
  media_player_->update(now);
  session_.attend();
}

void DesktopServices::follow_name() {
  std::string song = remote_.song();
  if (song == song_) return;
  song_ = std::move(song);
  hooks_.named(shown_name(song_));
}

}  // namespace tandem

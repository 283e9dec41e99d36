#include "desktop/mpris_player.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "desktop/bus_texts.h"
#include "desktop/names.h"

namespace tandem {

namespace {

constexpr const char* kPlayerInterface = "org.mpris.MediaPlayer2.Player";
constexpr std::int64_t kMicroseconds = 1000;  // of a millisecond
// Sound is taken from a song in gulps of up to two seconds: what differs by more than this was moved.
constexpr std::int64_t kJump = 2500;  // milliseconds

const char* status_text(PanelRemote::Motion motion) {
  switch (motion) {
    case PanelRemote::Motion::Playing:
      return "Playing";
    case PanelRemote::Motion::Paused:
      return "Paused";
    default:
      return "Stopped";
  }
}

}  // namespace

MprisPlayer::MprisPlayer(sd_bus* bus, PanelRemote& remote, Hooks hooks)
    : bus_(bus), remote_(remote), hooks_(std::move(hooks)), shown_(properties()), seeks_(remote.seeks()) {
  if (shown_.motion != Motion::Stopped) ++songs_begun_;
  sd_bus_add_object_vtable(bus_, nullptr, kMprisObject, "org.mpris.MediaPlayer2", kRootTable, this);
  sd_bus_add_object_vtable(bus_, nullptr, kMprisObject, kPlayerInterface, kPlayerTable, this);
  sd_bus_request_name_async(bus_, nullptr, kMprisName, 0, &MprisPlayer::on_name, this);
}

int MprisPlayer::on_name(sd_bus_message* answer, void* self, sd_bus_error*) {
  constexpr std::uint32_t kExists = 3;
  std::uint32_t result = 0;
  if (sd_bus_message_read_basic(answer, 'u', &result) <= 0 || result != kExists) return 0;
  const std::string second = std::string(kMprisName) + ".instance" + std::to_string(::getpid());
  return sd_bus_request_name_async(static_cast<MprisPlayer*>(self)->bus_, nullptr, second.c_str(), 0, nullptr, nullptr);
}

MprisPlayer::Properties MprisPlayer::properties() const {
  return {remote_.motion(), remote_.deck(),     remote_.song(),        remote_.length(),
          remote_.volume(), remote_.can_play(), remote_.can_go_next(), remote_.can_seek()};
}

void MprisPlayer::update(std::int64_t now) {
  const Properties current = properties();
  // Two lines may be of the same file; what follows on comes from the other deck.
  const bool began = current.motion != Motion::Stopped &&
                     (shown_.motion == Motion::Stopped || current.song != shown_.song || current.deck != shown_.deck);
  if (began) ++songs_begun_;
  const Properties before = std::exchange(shown_, current);
  signal_changes(before);
  if (!began) signal_jumps(before, now);
  position_ = remote_.position();
  looked_ = now;
  seeks_ = remote_.seeks();
}

// A property whose value is asked for is read then, so it only needs to be named here.
void MprisPlayer::signal_changes(const Properties& before) {
  std::array<const char*, 9> names{};
  std::size_t count = 0;
  const auto name_if = [&](bool changed, const char* name) {
    if (changed) names.at(count++) = name;
  };
  name_if(before.motion != shown_.motion, "PlaybackStatus");
  name_if(before.song != shown_.song || before.deck != shown_.deck || before.length != shown_.length ||
              (before.motion == Motion::Stopped) != (shown_.motion == Motion::Stopped),
          "Metadata");
  name_if(before.volume != shown_.volume, "Volume");
  name_if(before.can_go_next != shown_.can_go_next, "CanGoNext");
  name_if(before.can_play != shown_.can_play, "CanPlay");
  name_if((before.motion == Motion::Stopped) != (shown_.motion == Motion::Stopped), "CanPause");
  name_if(before.can_seek != shown_.can_seek, "CanSeek");
  if (count == 0) return;
  std::array<char*, 9> list{};
  for (std::size_t i = 0; i < count; ++i) list.at(i) = const_cast<char*>(names.at(i));  // sd-bus only reads them
  sd_bus_emit_properties_changed_strv(bus_, kMprisObject, kPlayerInterface, list.data());
}

void MprisPlayer::signal_jumps(const Properties& before, std::int64_t now) {
  if (shown_.motion == Motion::Stopped || before.motion == Motion::Stopped) return;
  const bool sought = remote_.seeks() != seeks_;
  const std::int64_t way = before.motion == Motion::Playing ? now - looked_ : 0;
  const bool jumped = std::abs(remote_.position() - (position_ + way)) > kJump;
  if (sought || jumped) signal_position();
}

void MprisPlayer::signal_position() const {
  sd_bus_emit_signal(bus_, kMprisObject, kPlayerInterface, "Seeked", "x", remote_.position() * kMicroseconds);
}

void MprisPlayer::signal_seek() {
  signal_position();
  position_ = remote_.position();
  seeks_ = remote_.seeks();
}

std::string MprisPlayer::track() const {
  return std::string(kApplicationObject) + "/song/" + std::to_string(songs_begun_);
}

int MprisPlayer::append_metadata(sd_bus_message* reply) const {
  if (shown_.motion == Motion::Stopped) return sd_bus_message_append(reply, "a{sv}", 0);
  const std::string title = bus_text(shown_name(shown_.song));
  return sd_bus_message_append(reply, "a{sv}", 4, "mpris:trackid", "o", track().c_str(), "mpris:length", "x",
                               shown_.length * kMicroseconds, "xesam:title", "s", title.c_str(), "xesam:url", "s",
                               file_url(shown_.song).c_str());
}

int MprisPlayer::append(std::string_view property, sd_bus_message* reply) const {
  const auto truth = [&](bool is_so) { return sd_bus_message_append(reply, "b", static_cast<int>(is_so)); };
  const auto number = [&](double value) { return sd_bus_message_append(reply, "d", value); };
  if (property == "PlaybackStatus") return sd_bus_message_append(reply, "s", status_text(shown_.motion));
  if (property == "Metadata") return append_metadata(reply);
  if (property == "Position") return sd_bus_message_append(reply, "x", remote_.position() * kMicroseconds);
  if (property == "Volume") return number(shown_.volume);
  if (property == "Rate" || property == "MinimumRate" || property == "MaximumRate") return number(1);
  if (property == "CanGoNext") return truth(shown_.can_go_next);
  if (property == "CanGoPrevious") return truth(false);
  if (property == "CanPlay") return truth(shown_.can_play);
  if (property == "CanPause") return truth(shown_.motion != Motion::Stopped);
  if (property == "CanSeek") return truth(shown_.can_seek);
  if (property == "CanControl") return truth(true);
  return -ENOENT;
}

int MprisPlayer::answer(sd_bus_message* call) {
  const std::string_view method = sd_bus_message_get_member(call);
  if (method == "OpenUri") return open_uri(call);
  if (method == "Seek") return seek(call);
  if (method == "SetPosition") return set_position(call);
  if (method == "Play") remote_.play();
  if (method == "Pause") remote_.pause();
  if (method == "PlayPause") remote_.play_pause();
  if (method == "Stop") remote_.stop();
  if (method == "Next") remote_.next();
  if (method == "Raise") hooks_.raise();
  if (method == "Quit") hooks_.quit();
  return sd_bus_reply_method_return(call, nullptr);  // Previous: there is none, so nothing happens
}

// Before the beginning is the beginning, beyond the end the next song.
int MprisPlayer::seek(sd_bus_message* call) {
  std::int64_t offset = 0;
  if (sd_bus_message_read_basic(call, 'x', &offset) <= 0) return -EINVAL;
  const std::int64_t wanted = remote_.position() + offset / kMicroseconds;
  if (remote_.can_seek() && wanted > remote_.length()) {
    remote_.next();
  } else if (remote_.seek_to(std::max<std::int64_t>(wanted, 0))) {
    signal_seek();
  }
  return sd_bus_reply_method_return(call, nullptr);
}

// What is meant for a song that has ended meanwhile, or for no place in this one, is passed over.
int MprisPlayer::set_position(sd_bus_message* call) {
  const char* meant = nullptr;
  std::int64_t wanted = 0;
  if (sd_bus_message_read(call, "ox", &meant, &wanted) <= 0) return -EINVAL;
  const std::int64_t milliseconds = wanted / kMicroseconds;
  if (remote_.can_seek() && track() == meant && wanted >= 0 && milliseconds <= remote_.length() &&
      remote_.seek_to(milliseconds))
    signal_seek();
  return sd_bus_reply_method_return(call, nullptr);
}

int MprisPlayer::open_uri(sd_bus_message* call) {
  const char* url = nullptr;
  if (sd_bus_message_read_basic(call, 's', &url) <= 0) return -EINVAL;
  const std::optional<std::string> path = path_of(url);
  if (!path)
    return sd_bus_reply_method_errorf(call, "org.freedesktop.DBus.Error.InvalidArgs", "No file of this machine: %s",
                                      url);
  remote_.add_and_play({*path});
  return sd_bus_reply_method_return(call, nullptr);
}

}  // namespace tandem

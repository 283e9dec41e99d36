// The interfaces of the media player as sd-bus needs them.

#include <cerrno>

#include "desktop/mpris_player.h"
#include "desktop/names.h"

namespace tandem {

namespace {

constexpr auto kChanges = SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE;
constexpr auto kConstant = SD_BUS_VTABLE_PROPERTY_CONST;

int on_root_get(sd_bus*, const char*, const char*, const char* property, sd_bus_message* reply, void*, sd_bus_error*) {
  const std::string_view name = property;
  if (name == "CanQuit" || name == "CanRaise") return sd_bus_message_append(reply, "b", 1);
  if (name == "HasTrackList") return sd_bus_message_append(reply, "b", 0);
  if (name == "Identity") return sd_bus_message_append(reply, "s", "Tandem");
  if (name == "DesktopEntry") return sd_bus_message_append(reply, "s", kApplicationName);
  if (name == "SupportedUriSchemes") return sd_bus_message_append(reply, "as", 1, "file");
  if (name == "SupportedMimeTypes")
    return sd_bus_message_append(reply, "as", 5, "audio/mpeg", "audio/x-wav", "audio/wav", "audio/vnd.wave",
                                 "application/x-tandem-playlist");
  return -ENOENT;
}

}  // namespace

int MprisPlayer::on_get(sd_bus*, const char*, const char*, const char* property, sd_bus_message* reply, void* self,
                        sd_bus_error*) {
  return static_cast<MprisPlayer*>(self)->append(property, reply);
}

// There is one rate; a rate of 0 is a pause by the interface's own words.
int MprisPlayer::on_set(sd_bus*, const char*, const char*, const char* property, sd_bus_message* value, void* self,
                        sd_bus_error*) {
  double number = 0;
  if (sd_bus_message_read_basic(value, 'd', &number) <= 0) return -EINVAL;
  PanelRemote& remote = static_cast<MprisPlayer*>(self)->remote_;
  if (std::string_view(property) == "Volume") remote.put_volume(number);
  if (std::string_view(property) == "Rate" && number == 0) remote.pause();
  return 0;
}

int MprisPlayer::on_call(sd_bus_message* call, void* self, sd_bus_error*) {
  return static_cast<MprisPlayer*>(self)->answer(call);
}

const sd_bus_vtable MprisPlayer::kRootTable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Raise", nullptr, nullptr, &MprisPlayer::on_call, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("Quit", nullptr, nullptr, &MprisPlayer::on_call, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_PROPERTY("CanQuit", "b", &on_root_get, 0, kConstant),
    SD_BUS_PROPERTY("CanRaise", "b", &on_root_get, 0, kConstant),
    SD_BUS_PROPERTY("HasTrackList", "b", &on_root_get, 0, kConstant),
    SD_BUS_PROPERTY("Identity", "s", &on_root_get, 0, kConstant),
    SD_BUS_PROPERTY("DesktopEntry", "s", &on_root_get, 0, kConstant),
    SD_BUS_PROPERTY("SupportedUriSchemes", "as", &on_root_get, 0, kConstant),
    SD_BUS_PROPERTY("SupportedMimeTypes", "as", &on_root_get, 0, kConstant),
    SD_BUS_VTABLE_END};

const sd_bus_vtable MprisPlayer::kPlayerTable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Next", nullptr, nullptr, &MprisPlayer::on_call, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("Previous", nullptr, nullptr, &MprisPlayer::on_call, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("Pause", nullptr, nullptr, &MprisPlayer::on_call, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("PlayPause", nullptr, nullptr, &MprisPlayer::on_call, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("Stop", nullptr, nullptr, &MprisPlayer::on_call, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("Play", nullptr, nullptr, &MprisPlayer::on_call, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_ARGS("Seek", SD_BUS_ARGS("x", Offset), SD_BUS_NO_RESULT, &MprisPlayer::on_call,
                            SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_ARGS("SetPosition", SD_BUS_ARGS("o", TrackId, "x", Position), SD_BUS_NO_RESULT,
                            &MprisPlayer::on_call, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_ARGS("OpenUri", SD_BUS_ARGS("s", Uri), SD_BUS_NO_RESULT, &MprisPlayer::on_call,
                            SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_SIGNAL_WITH_ARGS("Seeked", SD_BUS_ARGS("x", Position), 0),
    SD_BUS_PROPERTY("PlaybackStatus", "s", &MprisPlayer::on_get, 0, kChanges),
    SD_BUS_WRITABLE_PROPERTY("Rate", "d", &MprisPlayer::on_get, &MprisPlayer::on_set, 0,
                             kChanges | SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_PROPERTY("Metadata", "a{sv}", &MprisPlayer::on_get, 0, kChanges),
    SD_BUS_WRITABLE_PROPERTY("Volume", "d", &MprisPlayer::on_get, &MprisPlayer::on_set, 0,
                             kChanges | SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_PROPERTY("Position", "x", &MprisPlayer::on_get, 0, 0),
    SD_BUS_PROPERTY("MinimumRate", "d", &MprisPlayer::on_get, 0, kChanges),
    SD_BUS_PROPERTY("MaximumRate", "d", &MprisPlayer::on_get, 0, kChanges),
    SD_BUS_PROPERTY("CanGoNext", "b", &MprisPlayer::on_get, 0, kChanges),
    SD_BUS_PROPERTY("CanGoPrevious", "b", &MprisPlayer::on_get, 0, kChanges),
    SD_BUS_PROPERTY("CanPlay", "b", &MprisPlayer::on_get, 0, kChanges),
    SD_BUS_PROPERTY("CanPause", "b", &MprisPlayer::on_get, 0, kChanges),
    SD_BUS_PROPERTY("CanSeek", "b", &MprisPlayer::on_get, 0, kChanges),
    SD_BUS_PROPERTY("CanControl", "b", &MprisPlayer::on_get, 0, 0),
    SD_BUS_VTABLE_END};

}  // namespace tandem

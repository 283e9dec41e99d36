// The player on the session bus as a media player, by the interfaces org.mpris.MediaPlayer2 and
// org.mpris.MediaPlayer2.Player (version 2.2): what media keys, lock screens and playerctl work with. Of a second
// player on the same bus the name ends in ".instance" and its process number.
// Not offered because the panel has none of it: Previous, rates, loops, shuffling, track lists, full screen.
// UI thread.
#pragma once

#include <systemd/sd-bus.h>

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "desktop/panel_remote.h"

namespace tandem {

class MprisPlayer {
 public:
  struct Hooks {
    std::function<void()> raise;  // the window, to the front
    std::function<void()> quit;   // called while a call from the bus is answered: to be done after it
  };
  // `bus` must outlive the object's last use by the bus.
  MprisPlayer(sd_bus* bus, PanelRemote& remote, Hooks hooks);
  MprisPlayer(const MprisPlayer&) = delete;
  MprisPlayer& operator=(const MprisPlayer&) = delete;

  // Signals what has changed since the last call. `now` in milliseconds of any clock that does not jump.
  void update(std::int64_t now);
  // Answers a property of the player's interface; negative errno if there is no such.
  int append(std::string_view property, sd_bus_message* reply) const;

 private:
  using Motion = PanelRemote::Motion;
  struct Properties {  // what the interface shows, but for the position
    Motion motion = Motion::Stopped;
    int deck = -1;
    std::string song;
    std::int32_t length = 0;  // milliseconds
    double volume = 1;
    bool can_play = false;
    bool can_go_next = false;
    bool can_seek = false;
  };

  Properties properties() const;
  void signal_changes(const Properties& before);
  void signal_jumps(const Properties& before, std::int64_t now);
  void signal_position() const;
  void signal_seek();  // that was asked for by a call
  int append_metadata(sd_bus_message* reply) const;
  std::string track() const;  // an object path, another for each song that begins
  int answer(sd_bus_message* call);
  int seek(sd_bus_message* call);
  int set_position(sd_bus_message* call);
  int open_uri(sd_bus_message* call);

  static int on_get(sd_bus*, const char*, const char*, const char* property, sd_bus_message* reply, void* self,
                    sd_bus_error*);
  static int on_set(sd_bus*, const char*, const char*, const char* property, sd_bus_message* value, void* self,
                    sd_bus_error*);
  static int on_call(sd_bus_message* call, void* self, sd_bus_error*);
  static int on_name(sd_bus_message* answer, void* self, sd_bus_error*);
  static const sd_bus_vtable kRootTable[];
  static const sd_bus_vtable kPlayerTable[];

  sd_bus* bus_;
  PanelRemote& remote_;
  Hooks hooks_;
  Properties shown_;
  std::uint64_t songs_begun_ = 0;
  std::int32_t position_ = 0;  // milliseconds, at the last update
  std::int64_t looked_ = 0;    // milliseconds: the time of it
  std::uint32_t seeks_;
};

}  // namespace tandem

// The panel under the desktop's own controls: media keys, lock screens, the menu. Every act is what the user does on
// the control (press, click, release), so that the panel sees no difference; a control that is disabled does nothing.
// All that is read is read from the panel and its components. UI thread.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "shell/program.h"

namespace tandem {

class PanelRemote {
 public:
  enum class Motion { Stopped, Playing, Paused };

  struct Hooks {
    std::function<void()> user_action;                          // before and after every user action
    std::function<void(const std::vector<std::string>&)> drop;  // songs to be added as a drop on the window adds them
    std::function<bool()> adding;  // whether some are still on their way into the list; empty: drop adds at once
  };
  PanelRemote(Program& program, Hooks hooks) : program_(program), hooks_(std::move(hooks)) {}

  // A song sounds while one of the two inputs is open; in an overlap the song is the one that comes in.
  Motion motion() const;
  std::string song() const;                                              // its path; empty when stopped
  std::int32_t length() const;                                           // milliseconds; 0 when stopped
  std::int32_t position() const;                                         // milliseconds; 0 when stopped
  double volume() const;                                                 // 0 .. 1
  std::uint32_t seeks() const { return controls().Slider1.releases(); }  // of the user, so far
  int deck() const;                                                      // whose song is meant; -1: none
  bool can_play() const;                                                 // there is something to play
  bool can_go_next() const;  // a song sounds, one follows it, and the key for it is enabled
  bool can_seek() const;     // one song alone sounds

  // Play resumes what is paused and starts what is stopped; a song that plays goes on.
  void play();
  void pause();
  void play_pause();
  void stop();
  void next();
  // Milliseconds. False, and nothing happens, outside the song and while the user holds the slider.
  bool seek_to(std::int64_t position);
  void put_volume(double volume);  // limited to 0 .. 1
  void add_songs(const std::vector<std::string>& paths) { hooks_.drop(paths); }
  // The same, and the first of them is played as soon as they are in the list, if nothing sounds then. A saved list
  // takes the place of the present one.
  void add_and_play(const std::vector<std::string>& paths);
  // To be called at every turn of the event loop: songs may be added later than asked for, or not at all.
  void play_awaited();
  void click(Button& button);
  // The chosen line of the list, by a double-click on it; the panel keeps the one that plays.
  bool can_remove_line() const;
  void remove_line();

  Program& program() { return program_; }

 private:
  const PanelControls& controls() const { return program_.controls; }
  bool is_open(int deck) const { return !program_.sound.WaveMixer->Mute(deck); }
  void start();

  Program& program_;
  Hooks hooks_;
  std::optional<std::int32_t> awaited_line_;  // of the list, that is played once it is there
};

}  // namespace tandem

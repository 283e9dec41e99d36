// A user who does what bytes say to the whole player in simulated time, with tiny songs, some of them broken. What a
// user cannot do (a disabled key, a line that does not exist) does nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "simulation/simulated_player.h"
#include "support/temp_directory.h"

namespace tandem::fuzz {

// The songs, made once: a program directory and files for the dialogs in it.
class SongShelf {
 public:
  SongShelf();
  const std::string& path() const { return directory_.path(); }
  std::string song(unsigned number) const;  // wraps round
  std::string answer(unsigned first, unsigned count) const;
  std::string playlist(unsigned number) const { return directory_.file(number % 2 == 0 ? "saved.m3l" : "mixed.m3l"); }

 private:
  test::TempDirectory directory_;
  std::vector<std::string> names_;
};

class PanelUser {
 public:
  explicit PanelUser(const SongShelf& shelf);
  ~PanelUser();
  PanelUser(const PanelUser&) = delete;
  PanelUser& operator=(const PanelUser&) = delete;

  // One act, chosen and shaped by three bytes.
  void act(unsigned what, unsigned first, unsigned second);

  // Ends the program if something about the panel is wrong.
  void check() const;
  // The panel is left alone: the list comes to its end.
  void leave_alone();

 private:
  // Each one leaves the kinds that are not its own to the next.
  void press_key(unsigned kind, unsigned first, unsigned second);
  void use_list(unsigned kind, unsigned first, unsigned second);
  void turn(unsigned kind, unsigned first, unsigned second);
  void use_board(unsigned first, unsigned second);
  void answer(const std::string& text, Button& key);
  static void press(Button& key);

  const SongShelf& shelf_;
  SimulatedPlayer player_;
  PanelControls& controls_;
};

}  // namespace tandem::fuzz

// The program itself, with its window on a virtual screen, playing a list of sine songs from the disk into a private
// sound server whose sink is recorded. It is left alone once it plays.
#pragma once

#include <string>
#include <vector>

#include "app/real_player.h"
#include "faults/sine_songs.h"
#include "support/temp_directory.h"

namespace tandem::test {

class PlayingProgram {
 public:
  static constexpr int kLead = 1000;  // milliseconds

  PlayingProgram(std::size_t songs, double song_seconds, int buffer_mode);
  // The pointer goes away when PLAY has been clicked, and the sound is soon queued far ahead; or it stays.
  enum class User { kAway, kStays };
  // Opens the list and starts it; false if the window does not come or nothing is heard.
  bool play(User user);
  bool over(double seconds) const;  // heard something, and nothing for so long
  double expected_seconds() const;  // of the whole list
  int queued_milliseconds() const;  // at the sound server, before its device
  Heard frames_played() const { return listen(desktop.sound.recording()); }
  std::string disk_file(const std::string& name) const { return disk_.file(name); }

 private:
  void write_songs() const;
  void go_away() const;
  bool open_list();

  std::size_t songs_;
  double song_seconds_;
  TempDirectory disk_;  // the songs
  bool in_memory_;      // the rest, so that the recording does not wait for the disk

 public:
  Desktop desktop;
  RealPlayer player;
};

}  // namespace tandem::test

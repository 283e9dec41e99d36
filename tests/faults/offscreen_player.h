// The program itself in a folder of its own, without a screen: Qt draws into memory. Nothing of the session that runs
// the test reaches it: no display, no bus, no sound server but the one that PULSE_SERVER names.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>

#include "support/temp_directory.h"

namespace tandem::test {

std::string text_of(const std::string& path);  // of a whole file; "" if there is none

// The program's folder; several players may run from it.
class PlayerFolder {
 public:
  explicit PlayerFolder(const std::string& settings);  // the text of TP.inf
  std::string file(const std::string& name) const { return directory_.file(name); }
  const std::string& path() const { return directory_.path(); }
  std::string settings() const;  // "" if there is no TP.inf
  void write_settings(const std::string& text) const;
  // Temporary files that a killed player left; the cookie of the sound server's library is none.
  int strays() const;

 private:
  TempDirectory directory_;
};

class OffscreenPlayer {
 public:
  struct Limits {
    bool nothing_can_be_written = false;  // every write to a file fails, as on a full disk
    bool ordinary_user = false;           // not the super-user, whom no permission stops
  };
  explicit OffscreenPlayer(const PlayerFolder& folder) : OffscreenPlayer(folder, Limits{}) {}
  OffscreenPlayer(const PlayerFolder& folder, const Limits& limits);
  ~OffscreenPlayer();  // kills it if it still runs
  OffscreenPlayer(const OffscreenPlayer&) = delete;
  OffscreenPlayer& operator=(const OffscreenPlayer&) = delete;

  // Waits until it would close at SIGTERM; false if it ends before.
  bool started();
  void send(int signal) const;
  int exit_status();                                     // waits; 128 + n if it died of signal n
  const std::string& errors() const { return errors_; }  // once it has ended
  pid_t pid() const { return pid_; }

 private:
  [[noreturn]] void become_player(const PlayerFolder& folder, const Limits& limits) const;
  void read_errors();

  pid_t pid_ = -1;
  int pipe_[2] = {-1, -1};
  std::optional<int> status_;
  std::string errors_;
};

}  // namespace tandem::test

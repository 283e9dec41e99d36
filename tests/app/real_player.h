// The program itself in a folder of its own, on a virtual screen, observed and operated from outside: what it shows is
// found by its windows, and it is moved by the pointer and the keys of the screen alone.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/output_test_server.h"
#include "support/temp_directory.h"

namespace tandem::test {

// Lines of the settings file.
inline constexpr std::size_t kVolumeLine = 15;
inline constexpr std::size_t kLeadLine = 34;

// Where controls lie on the panel: px at 100 %.
struct PanelPoint {
  int x;
  int y;
};
inline constexpr PanelPoint kCloseKey{596, 7};
inline constexpr PanelPoint kDisplayPanel{130, 60};
inline constexpr PanelPoint kPlayKey{24, 146};
inline constexpr PanelPoint kSongKey{189, 146};
inline constexpr PanelPoint kVolumeWheel{235, 137};
inline constexpr PanelPoint kMeterSwitch{27, 227};
inline constexpr PanelPoint kPlaylistKey{124, 242};
inline constexpr PanelPoint kOpenListKey{581, 210};
inline constexpr PanelPoint kSaveListKey{581, 240};

// A screen and a sound server for all players of one test, and a home directory in which nothing is. Programs that are
// started after it use them.
class Desktop {
 public:
  explicit Desktop(const std::vector<std::string>& screen_options = {});  // words for Xvfb
  ~Desktop();
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  const TempDirectory& home() const { return home_; }
  void end_screen();
  std::string do_tool(const std::vector<std::string>& words) const;  // xdotool; its output, empty if it fails

  OutputTestServer sound;  // not started

 private:
  TempDirectory files_;
  TempDirectory home_;
  ChildProcess screen_;
};

class RealPlayer {
 public:
  // `settings` is the text of TP.inf. The program is started; show_up() waits for its window.
  RealPlayer(const Desktop& desktop, const std::string& settings);
  ~RealPlayer();  // kills it if it still runs
  RealPlayer(const RealPlayer&) = delete;
  RealPlayer& operator=(const RealPlayer&) = delete;

  bool show_up(int width = 607);  // px of the screen
  bool dialog_shows_up();
  bool dialog_goes_away();

  void click(int x, int y, int button = 1) const;  // a point of the panel
  void click(const PanelPoint& at, int button = 1) const { click(at.x, at.y, button); }
  void key(const std::string& key) const;       // for the panel, as xdotool names it
  void answer_dialog(const std::string& text);  // typed, and Return
  // PLAY, once the songs that the dialog chose are in the list: they are measured first. False if no song plays then.
  bool play();
  void type(const std::string& text) const;  // where the keys go
  void dialog_key(const std::string& key);
  void send(int signal) const;
  // The exit status once it has ended; 128 + n if it died of signal n. Nothing if it still runs after the deadline.
  std::optional<int> exit_status();

  void double_click(int x, int y) const;
  // Presses at a point of the panel, moves by so much and lets go.
  void drag(int x, int y, int right, int down) const;
  void click_screen(int x, int y, const std::string& with_key = {}) const;  // a point of the screen

  const std::string& window() const { return panel_; }
  pid_t pid() const { return pid_; }
  int panel_width() const { return number_of(panel_, "WIDTH="); }
  int panel_height() const { return number_of(panel_, "HEIGHT="); }
  std::pair<int, int> place() const { return {number_of(panel_, "X="), number_of(panel_, "Y=")}; }
  std::string settings() const;           // what TP.inf holds now, "" if there is none
  std::string errors() const;             // what it wrote on standard error
  void make_settings_unwritable() const;  // a folder stands in place of TP.inf
  std::string file(const std::string& name) const { return folder_.file(name); }
  std::string write_song(const std::string& name, double hertz, double seconds) const;

 private:
  std::vector<std::string> windows() const;
  int number_of(const std::string& window, const std::string& what) const;  // of its geometry
  int width_of(const std::string& window) const { return number_of(window, "WIDTH="); }
  bool find_panel(int width);
  bool find_dialog();
  bool has_ended();
  bool has_songs_name() const;  // in its window's title

  const Desktop& desktop_;
  TempDirectory folder_;
  pid_t pid_ = -1;
  std::optional<int> status_;
  std::string panel_;
  std::string dialog_;
};

// Lines of a settings file, without blanks.
std::vector<std::string> lines_of(const std::string& settings);

}  // namespace tandem::test

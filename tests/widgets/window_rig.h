// The panel's window on top of the whole player in simulated time, on an offscreen platform, with simulated input.
// Mouse and key events go to the native window, so the window itself finds the control under the pointer.
#pragma once

#include <QPoint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "simulation/simulated_player.h"
#include "support/temp_directory.h"
#include "widgets/window/panel_window.h"

namespace tandem::test {

class WindowRig {
 public:
  WindowRig();  // loaded with the factory settings, shown and active
  ~WindowRig();

  PanelControls& controls() { return player->program.controls; }
  PanelItem& item(const std::string& name) const;
  void add_songs(int count, double seconds = 0.5);  // "song 1.wav" ..., by the song dialog
  std::string song(int number) const;
  void show_equalizer();
  void show_board();
  void make_small();

  // Points of the panel.
  QPoint middle(const std::string& name) const;
  QPoint in(const std::string& name, int x, int y) const;  // from the control's own corner
  QPoint caption(const std::string& name, int position) const;

  void click(QPoint at, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers with = {});
  void click(const std::string& name) { click(middle(name)); }
  void double_click(QPoint at);
  void press(QPoint at, Qt::KeyboardModifiers with = {});
  void move(QPoint at, Qt::KeyboardModifiers with = {});
  void release(QPoint at, Qt::KeyboardModifiers with = {});
  void wheel(QPoint at, int notches, Qt::KeyboardModifiers with = {});
  void fine_wheel(QPoint at, int parts, Qt::KeyboardModifiers with = {});  // 120 parts are a notch
  void wheel(const std::string& name, int notches) { wheel(middle(name), notches); }
  void key(Qt::Key key, Qt::KeyboardModifiers with = {});
  void key_down(Qt::Key key);
  void key_up(Qt::Key key);
  void type(char letter);
  void focus(const std::string& name) const { item(name).setFocus(Qt::TabFocusReason); }
  std::string focused() const;  // the name of the item with the focus
  // The names in the order of the Tab key, from PLAY on.
  std::vector<std::string> tab_round();
  void drop(const std::vector<std::string>& paths);

  bool frame(double seconds) { return window->frame(seconds); }
  // Paints what is due; the pixels' boxes that were painted since the last call.
  QRegion painted();

  TempDirectory directory;
  std::unique_ptr<SimulatedPlayer> player;
  std::unique_ptr<PanelWindow> window;
  int closes = 0;
  int frames_wanted = 0;
  std::function<void()> user_action;  // before and after every user action

 private:
  class PaintWatch;
  QWindow* native() const { return window->windowHandle(); }
  std::unique_ptr<PaintWatch> watch_;
};

// Keeps the events of a slider in place of the panel's own handling: "press", "change VALUE", "release".
std::vector<std::string>& log_of(Slider& slider, std::vector<std::string>& log);

// Newer versions of Qt's offscreen platform show every window in one scale.
bool windows_follow_the_scale_of(QScreen* screen);

}  // namespace tandem::test

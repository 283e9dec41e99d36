// The panel's own window in a named state, without a program beneath: its controls are put as the panel's logic would
// put them, its displays have heard made-up music or silence. For pictures and their tests. UI thread; needs a
// QApplication.
#pragma once

#include <QImage>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "audio/sound_graph.h"
#include "base/timer_queue.h"
#include "controls/file_dialog.h"
#include "controls/panel_controls.h"
#include "displays/core/sound_frame.h"
#include "widgets/window/panel_window.h"

namespace tandem {

// The names of the states.
std::vector<std::string_view> panel_states();

class PanelScene {
 public:
  // At a scale of the window's own (1 = 100 %). Throws std::invalid_argument for a name that is no state.
  explicit PanelScene(std::string_view state, double scale = 1);
  ~PanelScene();

  PanelControls& controls() { return *controls_; }
  PanelWindow& window() const { return *window_; }
  SoundGraph& sound() { return sound_; }
  // Lets what moves come to rest and grabs the window: the panel, and its shadow where the state has one.
  QImage picture();

 private:
  class NoDialog final : public FileDialog {
   protected:
    std::string ask_open() override { return {}; }
    std::string ask_save() override { return {}; }
  };
  void hear(std::span<const SoundFrame> sound);
  void hover(int files);

  NoDialog dialog_;
  TimerQueue timers_;
  SoundGraph sound_;
  std::unique_ptr<PanelControls> controls_;
  std::unique_ptr<PanelWindow> window_;
};

}  // namespace tandem

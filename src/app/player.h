// The player: one of everything, on real threads, a real clock and a real device. UI thread.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "app/display_pump.h"
#include "app/frame_pacer.h"
#include "app/latency_policy.h"
#include "app/song_intake.h"
#include "desktop/desktop_services.h"
#include "desktop/panel_menu.h"
#include "engine/device/output_ring.h"
#include "engine/engine.h"
#include "engine/engine_threads.h"
#include "platform/desktop/compositor_watch.h"
#include "platform/desktop/occlusion_watch.h"
#include "platform/desktop/qt_clock.h"
#include "platform/desktop/qt_file_dialog.h"
#include "platform/desktop/reduced_motion.h"
#include "platform/desktop/rtkit.h"
#include "platform/desktop/shm_presenter.h"
#include "platform/desktop/ui_wakeup.h"
#include "platform/desktop/user_input_watch.h"
#include "platform/device_output.h"
#include "platform/realtime/real_step_clock.h"
#include "shell/program.h"
#include "widgets/window/panel_window.h"

namespace tandem {

class Player {
 public:
  // Loads the panel and starts the sound; needs no QApplication yet. Throws RuntimeError as the panel's start-up does.
  Player();
  ~Player();
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;

  void show();  // makes and shows the window
  // The user, a signal or the session closes the panel: stops the sound, saves the settings, ends the event loop.
  void close();
  // Everything that needs the QApplication ends here, before it does; the panel is closed if it was not.
  void leave_desktop();
  // The program is in exit(): the settings are saved without Qt.
  void save_at_exit();
  bool is_closed() const { return closed_; }
  // What shut-down could not do, if anything.
  const std::optional<RuntimeError>& failure() const { return failure_; }

  PanelWindow& window() { return *window_; }
  Program& program() { return program_; }
  Engine& engine() { return engine_; }

 private:
  using Milliseconds = TimerQueue::Milliseconds;

  SoundGraph make_graph(TimerQueue& timers);
  Environment environment();
  std::optional<Milliseconds> work(Milliseconds now);
  std::optional<Milliseconds> draw_frame(Milliseconds now);
  void attend(Milliseconds now);
  void user_moves();
  void ask_the_system(Milliseconds now);
  void user_action();
  void join_desktop();
  void follow_compositor();
  void watch_window();
  void come_to_front(const std::string& token);
  void show_name(const std::string& name);
  void show_mix(Milliseconds now);
  void play_out();

  OutputRing ring_;
  RealStepClock step_clock_;
  UiWakeup wakeup_;
  DeviceOutput output_;
  EngineThreads engine_threads_;
  Engine engine_;
  QtFileDialog dialog_;
  Program program_;
  DisplayPump pump_;
  SongIntake intake_;

  std::unique_ptr<QtClock> clock_;
  std::unique_ptr<UserInputWatch> input_watch_;
  std::unique_ptr<PanelWindow> window_;
  std::unique_ptr<ShmPresenter> presenter_;
  std::unique_ptr<OcclusionWatch> occlusion_watch_;
  std::unique_ptr<CompositorWatch> compositor_watch_;
  std::optional<RtKit> realtime_kit_;
  std::optional<ReducedMotionSetting> motion_;
  std::optional<PanelRemote> remote_;
  std::optional<DesktopServices> services_;
  std::optional<PanelMenu> menu_;
  std::optional<RuntimeError> failure_;
  FramePacer frames_;
  LatencyPolicy latency_policy_;
  Milliseconds mix_shown_ = 0;
  Flag mixing_ = kFalse;  // as it was shown last
  Milliseconds shown_ = 0;
  bool moving_ = true;  // the last frame said that something moves
  bool closed_ = false;
};

}  // namespace tandem

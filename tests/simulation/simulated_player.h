// The whole player without a window, a sound device or a clock: the same panel, wiring, engine and timers as in the
// program, in simulated time. Two runs with the same acts make the same sound, byte for byte. One thread.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/file_dialog.h"
#include "engine/device/output_ring.h"
#include "engine/device/simulated_output.h"
#include "engine/engine.h"
#include "shell/program.h"
#include "simulation/simulated_workers.h"

namespace tandem {

// A file dialog whose answers are given beforehand, in the form in which a dialog returns them; without one: cancelled.
class ScriptedDialog final : public FileDialog {
 public:
  std::deque<std::string> answers;
  std::function<void()> while_open;  // what happens before the answer is given

 protected:
  std::string ask_open() override { return take(); }
  std::string ask_save() override { return take(); }

 private:
  std::string take();
};

class SimulatedPlayer {
 public:
  struct Options {
    std::string directory;                        // the program directory, where TP.inf lies
    SimulatedOutput::Sink sink;                   // what the output device is given
    std::function<void(const std::string&)> log;  // every operation on a component: "@MS Component.operation(...)"
    std::function<void(const std::string&)> show_message;
    SilenceGuard::Patience silence_patience = {};
  };

  explicit SimulatedPlayer(const Options& options);

  void run(std::int64_t milliseconds);  // lets time pass, in whole steps of 10 ms
  // The same with a panel that is busy all the while: sound is made, but nothing is delivered and no timer ticks.
  void run_with_busy_panel(std::int64_t milliseconds);
  std::int64_t now() const { return now_; }

  // Files dropped on the window: results of the song dialog, and of the lists one that is opened first ("" for none).
  // What changes the list waits until no two songs overlap, as what the dialog returns does, by letting time pass: at
  // most kLongestHold, then it is given up (the output is paused).
  void drop(const std::string& list, const std::vector<std::string>& songs);
  static constexpr std::int64_t kLongestHold = 8000;  // milliseconds

  // A panel that is loaded sounds until it is unloaded; unloading plays out what is fading.
  void load() { program.panel.load(); }
  void unload();

 private:
  SoundGraph make_graph(TimerQueue& timers, const Options& options);
  bool hold();
  void make_step();
  void advance_timers();
  std::string time_of_day() const;
  Environment environment(const Options& options);

  bool ticks_due_ = false;  // the timers have not been advanced since the last step
  std::int64_t now_ = 0;    // simulated milliseconds
  std::int64_t owed_ = 0;   // asked for and not yet run: less than a step

 public:
  std::function<std::string()> wall_clock;  // "HH:MM"; if empty, the simulated time from noon on
  ScriptedDialog dialog;
  OutputRing ring;
  SimulatedOutput output;
  SimulatedWorkers workers;
  Engine engine;
  Program program;
};

}  // namespace tandem

// The whole player without its window: its panel and engine with the engine's own threads. The thread of the test is
// the panel's, and time passes only in run(). The device takes whatever it is given.
#pragma once

#include <atomic>
#include <memory>
#include <string>

#include "engine/device/output_ring.h"
#include "engine/engine.h"
#include "engine/engine_threads.h"
#include "shell/program.h"
#include "simulation/simulated_player.h"
#include "support/ready_output.h"
#include "support/temp_directory.h"
#include "threads/moved_clock.h"

namespace tandem::test {

class ThreadsRig {
 public:
  ThreadsRig();
  ~ThreadsRig();

  void add_song(const std::string& name, double seconds);  // a tone
  void choose_lead(int milliseconds);
  // Lets time pass in steps of 10 ms; the panel works at the end of every `panel_every`-th.
  void run(int milliseconds, int panel_every = 1);
  void work();  // the panel's turn
  // From now on the device demands what is missing to `frames` ahead, as a sound server does.
  void demand_ahead(std::size_t frames) { demands_ahead_ = frames; }
  void end_demands();
  std::size_t ready() const { return ring_.readable(); }  // frames
  int dry() const { return dry_; }                        // how often the device found less than it plays

  PanelControls& controls() { return program_->controls; }
  Program& program() { return *program_; }
  Engine& engine() { return *engine_; }
  std::int32_t position(int deck) { return program_->sound.AudioFile[static_cast<std::size_t>(deck)]->Position(); }

 private:
  void wait_for_readers();
  void play_a_step();

  TempDirectory directory_;
  OutputRing ring_;
  MovedClock clock_{[this] { return ring_.is_awaiting_demand(); }};
  ReadyOutput output_{ring_, kStepFrames};
  std::atomic<int> news_{0};
  ScriptedDialog dialog_;
  EngineThreads engine_threads_{clock_, [this] { ++news_; }};
  std::unique_ptr<Engine> engine_;
  std::unique_ptr<Program> program_;
  std::int64_t now_ = 0;  // milliseconds
  int steps_ = 0;
  std::size_t demands_ahead_ = 0;
  std::size_t at_device_ = 0;
  int dry_ = 0;
};

}  // namespace tandem::test

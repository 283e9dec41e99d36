// The player without its window: the same panel, wiring and engine on real threads and the real clock, with a libpulse
// output on a private sound server. The thread of the test is the UI thread: time passes only in run() and run_until().
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "engine/device/output_ring.h"
#include "engine/device/quantizer16.h"
#include "engine/engine.h"
#include "engine/engine_threads.h"
#include "platform/output_test_server.h"
#include "platform/pulse/pulse_output.h"
#include "platform/realtime/monotonic_clock.h"
#include "platform/realtime/real_step_clock.h"
#include "shell/program.h"
#include "simulation/simulated_player.h"
#include "support/signal.h"
#include "support/temp_directory.h"

namespace tandem::test {

using Milliseconds = std::int64_t;

// A number from the environment, for long forms of a test.
int count_from(const char* variable, int otherwise);

class LiveRig {
 public:
  LiveRig();  // the server is not started yet; the panel is loaded

  void start_server();                                            // with its recorder
  Sound add_song(const std::string& name, const Signal& signal);  // 16-bit WAV, by the song dialog
  void add_again(const std::string& name);
  void choose_lead(int milliseconds);
  void play() { controls().PLAY.click.raise(); }

  void run(Milliseconds span);
  bool run_until(const std::function<bool()>& condition, Milliseconds limit = 10'000);
  // The longest that this thread has been kept from one round of its work to the next: a busy machine's part in a
  // delay.
  Milliseconds longest_pause() const { return longest_pause_; }

  PanelControls& controls() { return program_.controls; }
  SoundGraph& sound() { return program_.sound; }
  const Output& output() const { return output_; }
  std::int32_t position();  // of the deck that is heard
  std::int16_t current_song() const { return program_.state.CurrentSong; }
  const std::string& folder() const { return directory_.path(); }  // where the songs lie
  bool played_further(double seconds);

  // What the mixer has made since the first call to run(), by way of the displays' feed, as a 16-bit device takes it.
  const std::vector<Sample16>& made() const { return made_; }

  // The sound of the last recorded milliseconds, as the greatest sample, and how many frames are recorded.
  double recorded_level(Milliseconds span) const;
  std::uint64_t recorded_frames() const;

  OutputTestServer server;

 private:
  Milliseconds now() const { return (monotonic_now() - began_) / kNanosecondsPerMillisecond; }
  void work();
  void collect();

  TempDirectory directory_;
  OutputRing ring_;
  RealStepClock clock_;
  PulseOutput output_;
  EngineThreads engine_threads_;
  Engine engine_;
  ScriptedDialog dialog_;
  Program program_;
  Nanoseconds began_ = monotonic_now();
  Nanoseconds worked_at_ = 0;
  Milliseconds longest_pause_ = 0;
  Quantizer16 quantizer_;
  std::vector<Sample16> made_;
};

}  // namespace tandem::test

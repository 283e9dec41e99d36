// The whole player in simulated time, in a directory of its own with the factory settings, and all the sound that it
// has given out. A user's acts are single words; what a user cannot do (a disabled button) does nothing.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/device/output_ring.h"
#include "simulation/simulated_player.h"
#include "support/temp_directory.h"

namespace tandem::test {

// Frames from the mixer to the output: one block of the equalizer and the limiter's look-ahead.
inline constexpr std::size_t kChainDelay = static_cast<std::size_t>(BandEqualizer::kDelay + Limiter::kDelay);

// Presses the lamp of a lead time, 280, 1000, 2500 or 3500, unless it is lit.
void choose_lead(PanelControls& controls, int milliseconds);

class PlayerRig {
 public:
  // Loads the panel and lets the output's first fade pass.
  PlayerRig();
  explicit PlayerRig(const std::string& settings,  // the text of TP.inf
                     const SilenceGuard::Patience& patience = {});

  void add(const std::string& path);                // by the song dialog
  void add(const std::vector<std::string>& paths);  // one dialog for each
  std::string file(const std::string& name) const { return directory_.file(name); }
  std::string make_file(const std::string& name, const std::vector<std::uint8_t>& bytes) const;

  static void press(Button& button);  // unless it is disabled
  void play() { press(controls().PLAY); }
  void pause() { press(controls().PAUSE); }
  void stop() { press(controls().STOPBtn); }
  void next() { press(controls().NextBtn); }
  void choose_lead(int milliseconds);    // 280, 1000, 2500 or 3500
  void seek(std::int32_t milliseconds);  // drags Slider1 there
  void run(std::int64_t milliseconds) { player_->run(milliseconds); }
  // Runs until it is so; false if it does not come within the time.
  bool run_until(const std::function<bool()>& condition, std::int64_t limit_milliseconds);
  bool run_until_stopped(std::int64_t limit_milliseconds);

  bool stopped() const;  // as the panel shows it
  SimulatedPlayer& player() { return *player_; }
  PanelControls& controls() { return player_->program.controls; }
  const PanelControls& controls() const { return player_->program.controls; }
  SoundGraph& sound_graph() { return player_->program.sound; }
  MMAudioFileX& deck(std::size_t index) { return *sound_graph().AudioFile.at(index); }
  MMWaveMixerX& mixer() { return *sound_graph().WaveMixer; }
  RunState& state() { return player_->program.state; }

  // What a test does on the panel's notifications; a notification has one handler, so these stand around it.
  struct Hooks {
    std::vector<std::function<void(int)>> before_finished;
    std::vector<std::function<void(int)>> after_finished;
    std::vector<std::function<void()>> after_mix_tick;
    std::vector<std::function<void()>> after_refresh;
  };
  Hooks hooks;

  const std::vector<Sample16>& sound() const { return sound_; }
  std::size_t frames() const { return sound_.size(); }  // given out so far
  // The frame of the output where a song that is started now has its first sample.
  std::size_t next_start() const { return sound_.size() + kChainDelay; }

 private:
  void hook();

  TempDirectory directory_;
  std::vector<Sample16> sound_;
  std::unique_ptr<SimulatedPlayer> player_;
};

// The factory settings.
std::string factory_text();

}  // namespace tandem::test

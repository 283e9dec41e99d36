#include "threads/threads_rig.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <span>
#include <thread>

#include "displays/display_set.h"
#include "program/player_rig.h"
#include "shell/mix_forecast.h"
#include "support/bytes.h"
#include "support/signal.h"
#include "support/wav_writer.h"

namespace tandem::test {

namespace {
constexpr std::int64_t kStepNs = 10'000'000;
}

// A device that demands has taken what it asked for, and plays out of that.
void ThreadsRig::play_a_step() {
  std::array<StereoFrame, kStepFrames> frames;
  if (demands_ahead_ == 0) {
    if (ring_.read(frames) < frames.size()) ++dry_;
    return;
  }
  at_device_ -= std::min<std::size_t>(at_device_, kStepFrames);
  while (at_device_ < demands_ahead_) {
    const std::size_t read =
        ring_.read(std::span(frames).first(std::min<std::size_t>(kStepFrames, demands_ahead_ - at_device_)));
    if (read == 0) break;
    at_device_ += read;
  }
  const std::size_t missing = demands_ahead_ - at_device_;
  ring_.is_awaiting_demand() ? ring_.demand_now(missing, std::chrono::seconds(1)) : ring_.demand(missing);
}

void ThreadsRig::end_demands() {
  demands_ahead_ = 0;
  ring_.end_demands();
  while (ring_.is_awaiting_demand()) std::this_thread::yield();
}

ThreadsRig::ThreadsRig() {
  engine_ = std::make_unique<Engine>(output_, ring_, engine_threads_);
  const auto graph = [this](TimerQueue& timers) {
    SoundGraph made;
    engine_->fill(made, timers);
    add_displays(made);
    return made;
  };
  const Environment environment{directory_.path(), [] { return std::string("12:00"); },
                                [](std::string_view text) { return std::string(text); }, [](const std::string&) {},
                                dialog_};
  program_ = std::make_unique<Program>(graph, environment);
  program_->panel.load();
  work();
}

ThreadsRig::~ThreadsRig() {
  clock_.end();
  program_->panel.unload();
  program_.reset();
  engine_.reset();
}

void ThreadsRig::add_song(const std::string& name, double seconds) {
  write_file(directory_.file(name), wav_file(tones(seconds, 440, 0.3), Encoding::kInt16));
  dialog_.answers.push_back(directory_.file(name));
  controls().LoadSong.click.raise();
}

void ThreadsRig::choose_lead(int milliseconds) { test::choose_lead(controls(), milliseconds); }

void ThreadsRig::work() {
  engine_->deliver();
  program_->timers.advance(now_);
  engine_->deliver();
  const MixForecast forecast = mix_forecast(*program_, engine_->sounding());
  engine_->skip_ticks_for(forecast.quiet);
  engine_->set_mix_point(forecast.deck, forecast.mix_point);
}

// No time passes while a reader opens a song: it works in real time.
void ThreadsRig::wait_for_readers() {
  while (!engine_->readers_idle()) std::this_thread::yield();
}

void ThreadsRig::run(int milliseconds, int panel_every) {
  for (int passed = 0; passed < milliseconds; passed += 10) {
    wait_for_readers();
    // By milliseconds, for a thread that waits for the panel looks as often; one that waits for a demand does not
    // sleep.
    const int parts = demands_ahead_ == 0 ? 10 : 1;
    for (int part = 0; part < parts; ++part) clock_.advance(kStepNs / parts);
    now_ += 10;
    play_a_step();
    if (++steps_ % panel_every == 0) work();
  }
}

}  // namespace tandem::test

#include "live/live_rig.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>
#include <utility>

#include "displays/display_set.h"
#include "platform/system/time_of_day.h"
#include "platform/system/upper_case.h"
#include "program/player_rig.h"
#include "shell/mix_forecast.h"
#include "support/bytes.h"
#include "support/wav_writer.h"

namespace tandem::test {

namespace {

SoundGraph graph_of(Engine& engine, TimerQueue& timers) {
  SoundGraph graph;
  engine.fill(graph, timers);
  add_displays(graph);
  return graph;
}

}  // namespace

int count_from(const char* variable, int otherwise) {
  const char* count = std::getenv(variable);
  return count != nullptr ? std::max(1, std::atoi(count)) : otherwise;
}

LiveRig::LiveRig()
    : output_(ring_),
      engine_threads_(clock_, [] {}),
      engine_(output_, ring_, engine_threads_),
      program_([this](TimerQueue& timers) { return graph_of(engine_, timers); },
               {directory_.path(), time_of_day, upper_case, [](const std::string&) {}, dialog_}) {
  program_.panel.load();
  engine_.deliver();
}

void LiveRig::start_server() {
  server.start();
  server.start_recording();
}

Sound LiveRig::add_song(const std::string& name, const Signal& signal) {
  write_file(directory_.file(name), wav_file(signal, Encoding::kInt16));
  add_again(name);
  return to_stereo(signal);
}

void LiveRig::add_again(const std::string& name) {
  dialog_.answers.push_back(directory_.file(name));
  controls().LoadSong.click.raise();
}

void LiveRig::choose_lead(int milliseconds) { test::choose_lead(controls(), milliseconds); }

void LiveRig::collect() {
  const DisplayFeed& feed = engine_.display_feed();
  const std::uint64_t written = feed.written();
  const std::size_t before = made_.size();
  std::vector<StereoFrame> fresh(written - before);
  if (!feed.read(written, fresh)) throw std::runtime_error("the feed was read too late");
  made_.resize(written);
  quantizer_.convert(fresh, std::span(made_).subspan(before));
}

void LiveRig::work() {
  engine_.deliver();
  program_.timers.advance(now());
  engine_.deliver();
  const MixForecast forecast = mix_forecast(program_, engine_.sounding());
  engine_.skip_ticks_for(forecast.quiet);
  engine_.set_mix_point(forecast.deck, forecast.mix_point);
  collect();
}

bool LiveRig::run_until(const std::function<bool()>& condition, Milliseconds limit) {
  const Milliseconds end = now() + limit;
  worked_at_ = monotonic_now();
  while (!condition()) {
    if (now() > end) return false;
    work();
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    const Nanoseconds before = std::exchange(worked_at_, monotonic_now());
    longest_pause_ = std::max(longest_pause_, (worked_at_ - before) / kNanosecondsPerMillisecond);
  }
  return true;
}

void LiveRig::run(Milliseconds span) {
  const Milliseconds end = now() + span;
  run_until([&] { return now() >= end; }, span + 1000);
}

std::int32_t LiveRig::position() {
  return sound().AudioFile[static_cast<std::size_t>(program_.state.ActiveDeck)]->Position();
}

bool LiveRig::played_further(double seconds) {
  const auto target = output_.frames_played() + static_cast<std::uint64_t>(seconds * kSampleRate);
  return run_until([&] { return output_.frames_played() >= target; });
}

std::uint64_t LiveRig::recorded_frames() const {
  return std::filesystem::file_size(server.directory() / "recording") / sizeof(Sample16);
}

double LiveRig::recorded_level(Milliseconds span) const {
  const auto count = static_cast<std::size_t>(frames_of(span));
  const std::uint64_t recorded = recorded_frames();
  if (recorded < count) return 0;
  std::vector<Sample16> last(count);
  std::ifstream file(server.directory() / "recording", std::ios::binary);
  file.seekg(static_cast<std::streamoff>((recorded - count) * sizeof(Sample16)));
  file.read(reinterpret_cast<char*>(last.data()), static_cast<std::streamsize>(count * sizeof(Sample16)));
  int greatest = 0;
  for (const Sample16& frame : last) greatest = std::max(greatest, std::abs(int{frame.left}));
  return greatest / 32768.0;
}

}  // namespace tandem::test

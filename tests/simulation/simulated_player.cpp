#include "simulation/simulated_player.h"

#include <cstdio>
#include <memory>
#include <utility>

#include "displays/display_set.h"
#include "logged_graph/logged_graph.h"
#include "platform/system/upper_case.h"
#include "shell/overlap.h"

namespace tandem {

namespace {

constexpr int kStartMinutes = 12 * 60;  // the clock starts at noon

}  // namespace

std::string ScriptedDialog::take() {
  if (while_open) while_open();
  if (answers.empty()) return {};
  std::string answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

SimulatedPlayer::SimulatedPlayer(const Options& options)
    : output(ring, options.sink),
      engine(output, ring, workers, options.silence_patience),
      program([this, &options](TimerQueue& timers) { return make_graph(timers, options); }, environment(options)) {
  dialog.prepare = [this](const std::string&) { return hold(); };
}

// Between the end of a song and the panel's next tick, as in the player: with short songs the next mix begins there.
bool SimulatedPlayer::hold() {
  for (std::int64_t t = 0; songs_overlap(program.sound); t += kStepMilliseconds) {
    if (t >= kLongestHold) return false;
    advance_timers();
    make_step();
  }
  return true;
}

void SimulatedPlayer::make_step() {
  now_ += kStepMilliseconds;  // notifications and ticks come at the end of the step
  workers.step();
  engine.deliver();
  output.drain();
  ticks_due_ = true;
}

void SimulatedPlayer::advance_timers() {
  if (std::exchange(ticks_due_, false)) program.timers.advance(now_);
}

void SimulatedPlayer::drop(const std::string& list, const std::vector<std::string>& songs) {
  if (dialog.prepare && !dialog.prepare({})) return;
  WindowFrame& window = program.controls.Painel;
  if (!list.empty()) window.list_dropped.raise(list);
  for (const std::string& song : songs) window.files_dropped.raise(song);
}

SoundGraph SimulatedPlayer::make_graph(TimerQueue& timers, const Options& options) {
  SoundGraph graph;
  engine.fill(graph, timers);
  add_displays(graph);
  if (!options.log) return graph;
  return logged_graph(std::move(graph), [this, log = options.log](const std::string& operation) {
    log("@" + std::to_string(now_) + " " + operation);
  });
}

std::string SimulatedPlayer::time_of_day() const {
  if (wall_clock) return wall_clock();
  const auto minutes = static_cast<int>((kStartMinutes + now_ / 60000) % (24 * 60));
  char text[16];
  std::snprintf(text, sizeof text, "%02d:%02d", minutes / 60, minutes % 60);
  return text;
}

Environment SimulatedPlayer::environment(const Options& options) {
  return {options.directory, [this] { return time_of_day(); }, upper_case, options.show_message, dialog};
}

void SimulatedPlayer::run(std::int64_t milliseconds) {
  for (owed_ += milliseconds; owed_ >= kStepMilliseconds; owed_ -= kStepMilliseconds) {
    advance_timers();
    make_step();
    advance_timers();
  }
}

void SimulatedPlayer::run_with_busy_panel(std::int64_t milliseconds) {
  for (; milliseconds >= kStepMilliseconds; milliseconds -= kStepMilliseconds) {
    workers.step();
    output.drain();
    now_ += kStepMilliseconds;
  }
}

void SimulatedPlayer::unload() {
  program.panel.unload();
  workers.step();
  engine.deliver();
  output.drain();
}

}  // namespace tandem

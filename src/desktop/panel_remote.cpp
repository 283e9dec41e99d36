#include "desktop/panel_remote.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/song_endings.h"
#include "controls/pause_state.h"

namespace tandem {

namespace {

class Act {
 public:
  explicit Act(const std::function<void()>& user_action) : user_action_(user_action) { user_action_(); }
  ~Act() { user_action_(); }
  Act(const Act&) = delete;
  Act& operator=(const Act&) = delete;

 private:
  const std::function<void()>& user_action_;
};

}  // namespace

// With both inputs open the active deck is the one that goes out.
int PanelRemote::deck() const {
  const int active = program_.state.ActiveDeck;
  if (const int idle = program_.state.idle_deck(); is_open(idle)) return idle;
  return is_open(active) ? active : -1;
}

PanelRemote::Motion PanelRemote::motion() const {
  if (deck() < 0) return Motion::Stopped;
  return is_paused(controls()) ? Motion::Paused : Motion::Playing;
}

std::string PanelRemote::song() const {
  const int sounds = deck();
  return sounds < 0 ? std::string() : program_.sound.AudioFile.at(static_cast<std::size_t>(sounds))->FileName();
}

// As the list has it: a deck would have to look into its file, which may be slow, or hang.
std::int32_t PanelRemote::length() const {
  const std::string file = song();
  const std::int32_t number = program_.state.CurrentSong;
  if (file.empty() || number < 0 || number > SongEntries::kLastSong) return 0;
  const SongEntry& entry = std::as_const(program_.SongTable).at(number);
  return entry.SongFile == file ? entry.SongLength : 0;
}

std::int32_t PanelRemote::position() const {
  const int sounds = deck();
  return sounds < 0 ? 0 : program_.sound.AudioFile.at(static_cast<std::size_t>(sounds))->Position();
}

double PanelRemote::volume() const {
  return static_cast<double>(controls().Volume.value()) / controls().Volume.maximum();
}

bool PanelRemote::can_play() const { return controls().PlayList.ListCount() > 0 || motion() != Motion::Stopped; }

bool PanelRemote::can_go_next() const {
  return motion() != Motion::Stopped && controls().NextBtn.Enabled &&
         program_.state.CurrentSong < controls().PlayList.ListCount();
}

bool PanelRemote::can_seek() const {
  return is_open(0) != is_open(1) && controls().Slider1.Enabled && controls().Slider1.maximum() > 0;
}

void PanelRemote::click(Button& button) {
  if (!button.Enabled) return;
  const Act act(hooks_.user_action);
  button.press.raise();
  button.click.raise();
  button.release.raise();
}

bool PanelRemote::can_remove_line() const {
  return controls().PlayList.ListIndex() >= 0 && controls().PlayList.Enabled;
}

void PanelRemote::remove_line() {
  if (!can_remove_line()) return;
  const Act act(hooks_.user_action);
  program_.controls.PlayList.user_double_click(controls().PlayList.ListIndex());
}

void PanelRemote::play() {
  if (motion() == Motion::Paused) return click(program_.controls.PAUSE);
  if (motion() == Motion::Stopped) start();
}

// What is stopped may have been paused before: the panel would start the song in silence.
void PanelRemote::start() {
  if (!can_play()) return;
  if (is_paused(controls())) click(program_.controls.PAUSE);
  click(program_.controls.PLAY);
}

void PanelRemote::pause() {
  if (motion() == Motion::Playing) click(program_.controls.PAUSE);
}

void PanelRemote::play_pause() { motion() == Motion::Playing ? pause() : play(); }

void PanelRemote::stop() {
  if (motion() != Motion::Stopped) click(program_.controls.STOPBtn);
}

void PanelRemote::next() {
  if (can_go_next()) click(program_.controls.NextBtn);
}

bool PanelRemote::seek_to(std::int64_t position) {
  Slider& slider = program_.controls.Slider1;
  if (!can_seek() || slider.held() || position < slider.minimum() || position > slider.maximum()) return false;
  const Act act(hooks_.user_action);
  slider.user_press();
  if (position != slider.value()) slider.move(static_cast<std::int32_t>(position));
  slider.user_release();
  return true;
}

void PanelRemote::put_volume(double volume) {
  Wheel& wheel = program_.controls.Volume;
  if (!std::isfinite(volume) || !wheel.Enabled) return;
  const auto wanted = static_cast<std::int32_t>(std::lround(std::clamp(volume, 0.0, 1.0) * wheel.maximum()));
  if (wanted == wheel.value()) return;
  const Act act(hooks_.user_action);
  wheel.move(wanted);
}

void PanelRemote::add_and_play(const std::vector<std::string>& paths) {
  const bool takes_the_place =
      std::any_of(paths.begin(), paths.end(), [](const auto& path) { return ends_as_list(path); });
  if (motion() == Motion::Stopped) awaited_line_ = takes_the_place ? 0 : controls().PlayList.ListCount();
  add_songs(paths);
  play_awaited();
}

void PanelRemote::play_awaited() {
  if (!awaited_line_ || (hooks_.adding && hooks_.adding())) return;
  const std::int32_t line = *std::exchange(awaited_line_, std::nullopt);
  if (motion() != Motion::Stopped || controls().PlayList.ListCount() <= line) return;
  {
    const Act act(hooks_.user_action);
    program_.controls.PlayList.user_select(line);
  }
  start();
}

}  // namespace tandem

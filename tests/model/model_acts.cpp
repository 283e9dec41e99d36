#include "model/model_acts.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "controls/panel_groups.h"

namespace tandem::model {

Acting::Acting() {
  for (const PoolSong& song : song_pool()) {
    if (song.known) panel.sound.files.lengths[std::string(song.path)] = song.length;
    if (song.refused_by_deck) panel.sound.files.refused_by_decks.insert(std::string(song.path));
  }
  panel.state.MixTimeMs = 2500;
  for (std::size_t band = 0; band < kBands; ++band) panel.program.sound.EQ->add_filter(0.0, 0.0, 0.0);
}

bool Acting::possible(const Event& event) const {
  const bool line = event.act == Act::Select || event.act == Act::Double;
  return !line || panel.controls.PlayList.ListCount() > 0;
}

void Acting::act(const Event& event) {
  panel.sound.calls.clear();
  panel.silent_errors.clear();
  panel.dialog.answers.clear();
  act_on_transport(event);
}

void Acting::act_on_transport(const Event& event) {
  PanelControls& c = panel.controls;
  const std::int32_t lines = c.PlayList.ListCount();
  switch (event.act) {
    case Act::Play:
      return c.PLAY.click.raise();
    case Act::Pause:
      return c.PAUSE.click.raise();
    case Act::Stop:
      return c.STOPBtn.click.raise();
    case Act::Next:
      return c.NextBtn.click.raise();
    case Act::Up:
      return c.UpList.click.raise();
    case Act::Down:
      return c.DownList.click.raise();
    case Act::Tick:
      return panel.tick();
    case Act::Position:
      panel.sound.deck.at(static_cast<std::size_t>(event.first))->position = event.second;
      return;
    case Act::Finished:
      return panel.sound.mixer->end_input(event.first % 2);
    case Act::Select:
      return c.PlayList.user_select(event.first % lines);
    case Act::Double:
      return c.PlayList.user_double_click(event.first % lines);
    case Act::Resync:
      return panel.program.sound.ListTimer->tick.raise();
    case Act::DelayOver:
      return c.TimerDelay.tick.raise();
    case Act::DeviceLost:
      return panel.program.sound.WaveOut->device_lost.raise();
    case Act::Wait:
      return panel.advance(event.first * 10);
    case Act::Refresh:
      panel.time_of_day = time_of_day(event.first);
      return panel.program.sound.Timer->tick.raise();
    default:
      return act_on_files(event);
  }
}

void Acting::choose(const std::string& answer, const Button& key) {
  if (!answer.empty()) panel.dialog.answers.push_back(answer);
  key.click.raise();
}

void Acting::act_on_files(const Event& event) {
  PanelControls& c = panel.controls;
  switch (event.act) {
    case Act::Add:
    case Act::AddMany:
      return choose(chosen_songs(event), c.LoadSong);
    case Act::Drop:
      return c.Painel.files_dropped.raise(chosen_songs(event));
    case Act::Cancel:
      return choose("", c.LoadSong);
    case Act::Open:
      std::ofstream(panel.directory.file("list.m3l"), std::ios::binary) << playlist_bytes(event);
      return choose(panel.directory.file("list.m3l"), c.LoadList);
    case Act::OpenSaved:
      return choose(saved_path(), c.LoadList);
    case Act::OpenMissing:
      return choose(event.first % 2 == 0 ? "" : "/no/such/folder/x.m3l", c.LoadList);
    case Act::Save:
      return choose(event.first % 4 == 0 ? "" : saved_path(), c.SaveList);
    case Act::ShowPlayList:
      return c.ShowPlayList.click.raise();
    case Act::LoadSongPress:
      return c.LoadSong.press.raise();
    case Act::LoadSongRelease:
      return c.LoadSong.release.raise();
    default:
      return act_on_player(event);
  }
}

void Acting::act_on_player(const Event& event) {
  PanelControls& c = panel.controls;
  switch (event.act) {
    case Act::Lead:
      return (c.*kLeadTimes.at(static_cast<std::size_t>(event.first % 4)).lamp).click.raise();
    case Act::BufferSwitch:
      return c.BufferSwitch.move(event.first % 2);
    case Act::ResetPress:
      return c.Command2.press.raise();
    case Act::ResetRelease:
      return c.Command2.release.raise();
    case Act::PitchPress:
      return c.SliderP.press.raise();
    case Act::PitchMove:
      return c.SliderP.move(event.first);
    case Act::PitchRelease:
      return c.SliderP.release.raise();
    case Act::PitchReset:
      return c.Command2.click.raise();
    case Act::SeekPress:
      return c.Slider1.press.raise();
    case Act::SeekMove:
      return c.Slider1.move(event.first);
    case Act::SeekRelease:
      return c.Slider1.release.raise();
    case Act::Volume:
      return c.Volume.move(event.first);
    case Act::Bypass:
      return c.Bypass.move(event.first % 2);
    default:
      return act_on_board(event);
  }
}

void Acting::act_on_board(const Event& event) {
  PanelControls& c = panel.controls;
  const auto number = static_cast<std::size_t>(event.first);
  switch (event.act) {
    case Act::Band:
      return c.sl0.at(number % kBands).move(event.second);
    case Act::BoardLamp:
      return (number % 6 == 5 ? c.MMLEDX6 : c.*kOptionLamps.at(number % 6)).click.raise();
    case Act::SpinnerMove:
      return (c.*kSpinners.at(number % 8)).move(event.second);
    case Act::SpinnerUp:
      return (c.*kSpinners.at(number % 8)).user_up();
    case Act::SpinnerDown:
      return (c.*kSpinners.at(number % 8)).user_down();
    case Act::BoardSwitch:
      return (number % 5 == 4 ? c.MMSwitchX1 : c.*kBoardSwitches.at(number % 5)).move(event.second);
    case Act::ShowControls:
      return c.ShowControls.click.raise();
    case Act::Size:
      return (number % 2 == 0 ? c.SongLabel.click : c.MMPanelX1[1].click).raise();
    default:
      ADD_FAILURE() << "there is no such act";
  }
}

std::string Acting::compare_saved(const PanelModel& model) const {
  const auto expected = model.disk.find(saved_path());
  if (expected == model.disk.end()) return {};
  std::ifstream file(saved_path(), std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  if (bytes.str() == expected->second) return {};
  return "  saved: expected \"" + expected->second + "\", found \"" + bytes.str() + "\"\n";
}

}  // namespace tandem::model

#include "model/model_acts.h"

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
  if (!act_on_transport(event) && !act_on_files(event) && !act_on_player(event)) act_on_board(event);
}

bool Acting::act_on_transport(const Event& event) {
  PanelControls& c = panel.controls;
  const std::int32_t lines = c.PlayList.ListCount();
  switch (event.act) {
    case Act::Play:
      c.PLAY.click.raise();
      return true;
    case Act::Pause:
      c.PAUSE.click.raise();
      return true;
    case Act::Stop:
      c.STOPBtn.click.raise();
      return true;
    case Act::Next:
      c.NextBtn.click.raise();
      return true;
    case Act::Up:
      c.UpList.click.raise();
      return true;
    case Act::Down:
      c.DownList.click.raise();
      return true;
    case Act::Tick:
      panel.tick();
      return true;
    case Act::Position:
      panel.sound.deck.at(static_cast<std::size_t>(event.first))->position = event.second;
      return true;
    case Act::Finished:
      panel.sound.mixer->end_input(event.first % 2);
      return true;
    case Act::Select:
      c.PlayList.user_select(event.first % lines);
      return true;
    case Act::Double:
      c.PlayList.user_double_click(event.first % lines);
      return true;
    case Act::Resync:
      panel.program.sound.ListTimer->tick.raise();
      return true;
    case Act::DelayOver:
      c.TimerDelay.tick.raise();
      return true;
    case Act::DeviceLost:
      panel.program.sound.WaveOut->device_lost.raise();
      return true;
    case Act::Wait:
      panel.advance(event.first * 10);
      return true;
    case Act::Refresh:
      panel.time_of_day = time_of_day(event.first);
      panel.program.sound.Timer->tick.raise();
      return true;
    default:
      return false;
  }
}

void Acting::choose(const std::string& answer, const Button& key) {
  if (!answer.empty()) panel.dialog.answers.push_back(answer);
  key.click.raise();
}

bool Acting::act_on_files(const Event& event) {
  PanelControls& c = panel.controls;
  switch (event.act) {
    case Act::Add:
    case Act::AddMany:
      choose(chosen_songs(event), c.LoadSong);
      return true;
    case Act::Drop:
      c.Painel.files_dropped.raise(chosen_songs(event));
      return true;
    case Act::Cancel:
      choose("", c.LoadSong);
      return true;
    case Act::Open:
      std::ofstream(panel.directory.file("list.m3l"), std::ios::binary) << playlist_bytes(event);
      choose(panel.directory.file("list.m3l"), c.LoadList);
      return true;
    case Act::OpenSaved:
      choose(saved_path(), c.LoadList);
      return true;
    case Act::OpenMissing:
      choose(event.first % 2 == 0 ? "" : "/no/such/folder/x.m3l", c.LoadList);
      return true;
    case Act::Save:
      choose(event.first % 4 == 0 ? "" : saved_path(), c.SaveList);
      return true;
    case Act::ShowPlayList:
      c.ShowPlayList.click.raise();
      return true;
    case Act::LoadSongPress:
      c.LoadSong.press.raise();
      return true;
    case Act::LoadSongRelease:
      c.LoadSong.release.raise();
      return true;
    default:
      return false;
  }
}

bool Acting::act_on_player(const Event& event) {
  PanelControls& c = panel.controls;
  switch (event.act) {
    case Act::Lead:
      (c.*kLeadTimes.at(static_cast<std::size_t>(event.first % 4)).lamp).click.raise();
      return true;
    case Act::BufferSwitch:
      c.BufferSwitch.move(event.first % 2);
      return true;
    case Act::ResetPress:
      c.Command2.press.raise();
      return true;
    case Act::ResetRelease:
      c.Command2.release.raise();
      return true;
    case Act::PitchPress:
      c.SliderP.press.raise();
      return true;
    case Act::PitchMove:
      c.SliderP.move(event.first);
      return true;
    case Act::PitchRelease:
      c.SliderP.release.raise();
      return true;
    case Act::PitchReset:
      c.Command2.click.raise();
      return true;
    case Act::SeekPress:
      c.Slider1.press.raise();
      return true;
    case Act::SeekMove:
      c.Slider1.move(event.first);
      return true;
    case Act::SeekRelease:
      c.Slider1.release.raise();
      return true;
    case Act::Volume:
      c.Volume.move(event.first);
      return true;
    case Act::Bypass:
      c.Bypass.move(event.first % 2);
      return true;
    default:
      return false;
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
      return;
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

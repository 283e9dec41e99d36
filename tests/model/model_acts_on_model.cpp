#include <filesystem>

#include "model/model_acts.h"

namespace tandem::model {

namespace {

bool act_on_transport(PanelModel& model, const Event& event) {
  const auto lines = static_cast<std::int32_t>(model.look.PlayList.size());
  switch (event.act) {
    case Act::Play:
      model.play();
      return true;
    case Act::Pause:
      model.pause();
      return true;
    case Act::Stop:
      model.stop();
      return true;
    case Act::Next:
      model.next();
      return true;
    case Act::Up:
      model.move_up();
      return true;
    case Act::Down:
      model.move_down();
      return true;
    case Act::Tick:
      model.tick();
      return true;
    case Act::Position:
      model.look.decks.at(static_cast<std::size_t>(event.first)).Position = event.second;
      return true;
    case Act::Finished:
      model.finished(event.first % 2);
      return true;
    case Act::Select:
      model.click_line(event.first % lines);
      return true;
    case Act::Double:
      model.double_click_line(event.first % lines);
      return true;
    case Act::Resync:
      model.resynchronise();
      return true;
    case Act::DelayOver:
      model.delay_over();
      return true;
    case Act::DeviceLost:
      model.lose_device();
      return true;
    case Act::Wait:
      model.wait(event.first * 10);
      return true;
    case Act::Refresh:
      model.time_of_day = time_of_day(event.first);
      model.refresh();
      return true;
    default:
      return false;
  }
}

bool act_on_files(PanelModel& model, const Event& event, const std::string& saved_path) {
  const std::string list_path = saved_path.substr(0, saved_path.rfind('/')) + "/list.m3l";
  switch (event.act) {
    case Act::Add:
    case Act::AddMany:
      model.load_song(chosen_songs(event));
      return true;
    case Act::Drop:
      model.drop(chosen_songs(event));
      return true;
    case Act::Cancel:
      model.load_song("");
      return true;
    case Act::Open:
      model.disk[list_path] = playlist_bytes(event);
      model.open(list_path);
      return true;
    case Act::OpenSaved:
      model.open(saved_path);
      return true;
    case Act::OpenMissing:
      model.open(event.first % 2 == 0 ? "" : "/no/such/folder/x.m3l");
      return true;
    case Act::Save:
      model.save(event.first % 4 == 0 ? "" : saved_path);
      return true;
    case Act::ShowPlayList:
      model.toggle_list();
      return true;
    case Act::LoadSongPress:
      model.press_load_song(true);
      return true;
    case Act::LoadSongRelease:
      model.press_load_song(false);
      return true;
    default:
      return false;
  }
}

bool act_on_player(PanelModel& model, const Event& event) {
  switch (event.act) {
    case Act::Lead:
      model.click_lead(static_cast<std::size_t>(event.first % 4));
      return true;
    case Act::BufferSwitch:
      model.move_buffer_switch(event.first % 2);
      return true;
    case Act::ResetPress:
      model.press_pitch_reset(true);
      return true;
    case Act::ResetRelease:
      model.press_pitch_reset(false);
      return true;
    case Act::PitchPress:
      model.press_pitch();
      return true;
    case Act::PitchMove:
      model.move_pitch(event.first);
      return true;
    case Act::PitchRelease:
      model.release_pitch();
      return true;
    case Act::PitchReset:
      model.click_pitch_reset();
      return true;
    case Act::SeekPress:
      model.press_seek();
      return true;
    case Act::SeekMove:
      model.move_seek(event.first);
      return true;
    case Act::SeekRelease:
      model.release_seek();
      return true;
    case Act::Volume:
      model.move_volume(event.first);
      return true;
    case Act::Bypass:
      model.move_bypass(event.first % 2);
      return true;
    default:
      return false;
  }
}

void act_on_board(PanelModel& model, const Event& event) {
  const auto number = static_cast<std::size_t>(event.first);
  switch (event.act) {
    case Act::Band:
      return model.move_band(number % 15, event.second);
    case Act::BoardLamp:
      return model.click_lamp(number % 6);
    case Act::SpinnerMove:
      return model.move_spinner(number % 8, event.second);
    case Act::SpinnerUp:
      return model.press_spinner(number % 8, true);
    case Act::SpinnerDown:
      return model.press_spinner(number % 8, false);
    case Act::BoardSwitch:
      return model.move_switch(number % 5, event.second);
    case Act::ShowControls:
      return model.toggle_board();
    case Act::Size:
      return model.toggle_size();
    default:
      return;
  }
}

}  // namespace

void act_on_model(PanelModel& model, const Event& event, const std::string& saved_path) {
  model.event([&] {
    if (!act_on_transport(model, event) && !act_on_files(model, event, saved_path) && !act_on_player(model, event))
      act_on_board(model, event);
  });
}

}  // namespace tandem::model

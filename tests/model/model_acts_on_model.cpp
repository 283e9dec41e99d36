#include <gtest/gtest.h>

#include <filesystem>

#include "model/model_acts.h"

namespace tandem::model {

namespace {

// Each function passes what it does not handle to the one above it.
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
      ADD_FAILURE() << "there is no such act";
  }
}

void act_on_player(PanelModel& model, const Event& event) {
  switch (event.act) {
    case Act::Lead:
      return model.click_lead(static_cast<std::size_t>(event.first % 4));
    case Act::BufferSwitch:
      return model.move_buffer_switch(event.first % 2);
    case Act::ResetPress:
      return model.press_pitch_reset(true);
    case Act::ResetRelease:
      return model.press_pitch_reset(false);
    case Act::PitchPress:
      return model.press_pitch();
    case Act::PitchMove:
      return model.move_pitch(event.first);
    case Act::PitchRelease:
      return model.release_pitch();
    case Act::PitchReset:
      return model.click_pitch_reset();
    case Act::SeekPress:
      return model.press_seek();
    case Act::SeekMove:
      return model.move_seek(event.first);
    case Act::SeekRelease:
      return model.release_seek();
    case Act::Volume:
      return model.move_volume(event.first);
    case Act::Bypass:
      return model.move_bypass(event.first % 2);
    default:
      return act_on_board(model, event);
  }
}

void act_on_files(PanelModel& model, const Event& event, const std::string& saved_path) {
  const std::string list_path = saved_path.substr(0, saved_path.rfind('/')) + "/list.m3l";
  switch (event.act) {
    case Act::Add:
    case Act::AddMany:
      return model.load_song(chosen_songs(event));
    case Act::Drop:
      return model.drop(chosen_songs(event));
    case Act::Cancel:
      return model.load_song("");
    case Act::Open:
      model.disk[list_path] = playlist_bytes(event);
      return model.open(list_path);
    case Act::OpenSaved:
      return model.open(saved_path);
    case Act::OpenMissing:
      return model.open(event.first % 2 == 0 ? "" : "/no/such/folder/x.m3l");
    case Act::Save:
      return model.save(event.first % 4 == 0 ? "" : saved_path);
    case Act::ShowPlayList:
      return model.toggle_list();
    case Act::LoadSongPress:
      return model.press_load_song(true);
    case Act::LoadSongRelease:
      return model.press_load_song(false);
    default:
      return act_on_player(model, event);
  }
}

void act_on_transport(PanelModel& model, const Event& event, const std::string& saved_path) {
  const auto lines = static_cast<std::int32_t>(model.look.PlayList.size());
  switch (event.act) {
    case Act::Play:
      return model.play();
    case Act::Pause:
      return model.pause();
    case Act::Stop:
      return model.stop();
    case Act::Next:
      return model.next();
    case Act::Up:
      return model.move_up();
    case Act::Down:
      return model.move_down();
    case Act::Tick:
      return model.tick();
    case Act::Position:
      model.look.decks.at(static_cast<std::size_t>(event.first)).Position = event.second;
      return;
    case Act::Finished:
      return model.finished(event.first % 2);
    case Act::Select:
      return model.click_line(event.first % lines);
    case Act::Double:
      return model.double_click_line(event.first % lines);
    case Act::Resync:
      return model.resynchronise();
    case Act::DelayOver:
      return model.delay_over();
    case Act::DeviceLost:
      return model.lose_device();
    case Act::Wait:
      return model.wait(event.first * 10);
    case Act::Refresh:
      model.time_of_day = time_of_day(event.first);
      return model.refresh();
    default:
      return act_on_files(model, event, saved_path);
  }
}

}  // namespace

void act_on_model(PanelModel& model, const Event& event, const std::string& saved_path) {
  model.event([&] { act_on_transport(model, event, saved_path); });
}

}  // namespace tandem::model

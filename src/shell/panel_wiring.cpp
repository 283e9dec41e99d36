#include "shell/panel_wiring.h"

#include <array>
#include <cstddef>
#include <utility>

#include "controls/panel_groups.h"
#include "shell/error_policy.h"
#include "shell/program.h"

namespace tandem {

namespace {

void wire_playlist(Program& p, const ErrorPolicy& on_error) {
  PanelControls& c = p.controls;
  c.PlayList.click.connect(on_error.silently([&p] { p.list.click_line(); }));
  c.PlayList.double_click.connect(on_error.silently([&p] { p.list.remove_line(); }));
  c.UpList.click.connect(on_error.silently([&p] { p.list.move_up(); }));
  c.DownList.click.connect(on_error.silently([&p] { p.list.move_down(); }));
  c.ShowPlayList.click.connect(on_error.silently([&p] { p.list.show_or_hide_list(); }));
  c.LoadSong.click.connect(on_error.silently([&p] { p.loading.choose_songs(); }));
  c.LoadSong.press.connect(on_error.silently([&p] { p.loading.press(); }));
  c.LoadSong.release.connect(on_error.silently([&p] { p.loading.release(); }));
  c.Painel.files_dropped.connect(on_error.silently([&p](const std::string& files) { p.loading.add_songs(files); }));
  c.Painel.list_dropped.connect(on_error.silently([&p](const std::string& path) { p.files.open_list(path); }));
  c.SaveList.click.connect(on_error.silently([&p] { p.files.save(); }));
  c.LoadList.click.connect(on_error.silently([&p] { p.files.open(); }));
}

void wire_playback(Program& p, const ErrorPolicy& on_error) {
  PanelControls& c = p.controls;
  c.PLAY.click.connect(on_error.silently([&p] { p.transport.play(); }));
  c.PAUSE.click.connect(on_error.silently([&p] { p.transport.pause(); }));
  c.STOPBtn.click.connect(on_error.silently([&p] { p.transport.stop(); }));
  c.NextBtn.click.connect(on_error.silently([&p] { p.transport.next(); }));
  for (std::size_t i = 0; i < kLeadTimes.size(); ++i)
    (c.*kLeadTimes[i].lamp).click.connect(on_error.silently([&p, i] { p.mix.choose_lead_time(i); }));
  c.BufferSwitch.change.connect(on_error.silently([&p] { p.mix.change_buffers(); }));
  p.sound.MixTimer->tick.connect(on_error.silently([&p] { p.mix.tick(); }));
  p.sound.Timer->tick.connect(on_error.silently([&p] { p.display.refresh(); }));
  p.sound.ListTimer->tick.connect(on_error.silently([&p] { p.mix.synchronise_list(); }));
  p.sound.WaveMixer->input_finished.connect(on_error.silently([&p](int input) { p.mix.input_finished(input); }));
  p.sound.WaveOut->device_lost.connect(on_error.silently([&p] { p.mix.close_output(); }));
}

void wire_shaping(Program& p, const ErrorPolicy& on_error) {
  PanelControls& c = p.controls;
  c.SliderP.press.connect(on_error.with_message([&p] { p.pitch.press_pitch(); }));
  c.SliderP.change.connect(on_error.with_message([&p] { p.pitch.change_pitch(); }));
  c.SliderP.release.connect(on_error.with_message([&p] { p.pitch.release_pitch(); }));
  c.TimerDelay.tick.connect(on_error.with_message([&p] { p.pitch.end_reset(); }));
  c.Volume.change.connect(on_error.with_message([&p] { p.pitch.change_volume(); }));
  c.Slider1.press.connect(on_error.with_message([&p] { p.seeking.press(); }));
  c.Slider1.change.connect(on_error.with_message([&p] { p.seeking.change(); }));
  c.Slider1.release.connect(on_error.with_message([&p] { p.seeking.release(); }));
  for (std::size_t i = 0; i < kBands; ++i)
    c.sl0[i].change.connect(on_error.with_message([&p, i] { p.equalizer.change_band(i); }));
  c.Bypass.change.connect(on_error.with_message([&p] { p.equalizer.change_bypass(); }));
  c.MMSwitchX1.change.connect(on_error.with_message([&p] { p.selector.change(); }));
}

void wire_board(Program& p, const ErrorPolicy& on_error) {
  PanelControls& c = p.controls;
  for (std::size_t i = 0; i < kOptionLamps.size(); ++i)
    (c.*kOptionLamps[i]).click.connect(on_error.with_message([&p, i] { p.board.click_option(i); }));
  c.MMLEDX6.click.connect(on_error.with_message([&p] { p.board.click_default(); }));
  for (const std::size_t i : {0U, 3U, 4U, 6U, 7U})  // MMLEDSpin1, 4, 5, 7, 8; the others use their buttons
    (c.*kSpinners[i]).change.connect(on_error.with_message([&p, i] { p.board.change_spinner(i); }));
  c.MMLEDSpin2.up_click.connect(on_error.with_message([&p] { p.board.step_fft_length(true); }));
  c.MMLEDSpin2.down_click.connect(on_error.with_message([&p] { p.board.step_fft_length(false); }));
  c.MMLEDSpin3.up_click.connect(on_error.with_message([&p] { p.board.step_vertical_scale(true); }));
  c.MMLEDSpin3.down_click.connect(on_error.with_message([&p] { p.board.step_vertical_scale(false); }));
  c.MMLEDSpin6.up_click.connect(on_error.with_message([&p] { p.board.step_horizontal_scale(true); }));
  c.MMLEDSpin6.down_click.connect(on_error.with_message([&p] { p.board.step_horizontal_scale(false); }));
  for (std::size_t i = 0; i < kBoardSwitches.size(); ++i)
    (c.*kBoardSwitches[i]).change.connect(on_error.with_message([&p, i] { p.board.change_board_switch(i); }));
  c.ShowControls.click.connect(on_error.with_message([&p] { p.board.show_or_hide_board(); }));
}

void wire_shell(Program& p, const ErrorPolicy& on_error) {
  PanelControls& c = p.controls;
  for (Panel& panel : c.MMPanelX1) panel.click.connect(on_error.with_message([&p] { p.panel.toggle_size(); }));
  for (LedLabel* label :
       {&c.SongLabel, &c.MMLEDLABELX1, &c.MMLEDLABELX2, &c.MMLEDLABELX3, &c.LblPosition, &c.LblTempTot, &c.ClockLabel})
    label->click.connect(on_error.with_message([&c] { c.MMPanelX1[1].click.raise(); }));
  c.MeterVol.click.connect(on_error.with_message([&c] { c.MMPanelX1[1].click.raise(); }));
  c.Command2.click.connect(on_error.with_message([&p] { p.panel.reset_pitch(); }));
  c.Command2.press.connect(on_error.with_message([&p] { p.panel.press_reset(); }));
  c.Command2.release.connect(on_error.with_message([&p] { p.panel.release_reset(); }));
}

}  // namespace

void wire(Program& program, std::function<void(const std::string&)> show_message) {
  const ErrorPolicy on_error(program.ended_early, std::move(show_message));
  wire_playlist(program, on_error);
  wire_playback(program, on_error);
  wire_shaping(program, on_error);
  wire_board(program, on_error);
  wire_shell(program, on_error);
}

}  // namespace tandem

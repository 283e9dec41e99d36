#include "tools/pictures/panel_painter.h"

#include "paint/controls/gain.h"

#include "paint/controls/head_strip.h"
#include "paint/panel/panel_background.h"
#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/text/caption.h"

namespace tandem {

namespace {

void paint_named_key(QPainter& painter, std::string_view name, const KeyState& look) {
  paint_key(painter, control_box(name).box(), look);
}

void paint_head(QPainter& painter, const PanelState& look) {
  const WindowSize size = look.window.size;
  paint_chrome_button(painter, chrome_box(control_box("Minimise"), size), Icon::Minimise, look.minimise);
  paint_chrome_button(painter, chrome_box(control_box("Close"), size), Icon::Close, look.close);
}

void paint_transport(QPainter& painter, const TransportState& look) {
  paint_slider(painter, control_box("Slider1").box(), look.position);
  paint_named_key(painter, "PLAY", look.play);
  paint_named_key(painter, "PAUSE", look.pause);
  paint_named_key(painter, "STOPBtn", look.stop);
  paint_named_key(painter, "NextBtn", look.next);
  paint_named_key(painter, "LoadSong", look.load);
  paint_wheel(painter, control_box("Volume").box(), look.volume);
}

void paint_mix(QPainter& painter, const MixState& look) {
  constexpr std::string_view kLeadNames[] = {"AMLedOff", "AMLed1", "AMLed2", "AMLed3"};
  for (std::size_t i = 0; i < look.lead.size(); ++i) {
    paint_lead_lamp(painter, control_box(kLeadNames[i]).box(), look.lead[i]);
  }
  paint_rotary(painter, rotary_place(control_box("MMSwitchX1")), look.meter);
  paint_slide_switch(painter, control_box("BufferSwitch").box(), look.buffer);
  paint_slide_switch(painter, control_box("Bypass").box(), look.bypass);
  paint_named_key(painter, "ShowPlayList", look.show_list);
  paint_named_key(painter, "ShowControls", look.show_board);
  paint_fader(painter, control_box("SliderP").box(), look.pitch);
  paint_stud(painter, control_box("Command2").box(), look.reset_pitch);
}

void paint_bands(QPainter& painter, const EqualizerState& look) {
  for (std::size_t i = 0; i < look.bands.size(); ++i) {
    paint_fader(painter, control_box("sl0", static_cast<int>(i)).box(), look.bands[i]);
    paint_gain(painter, control_box("dbLabel0", static_cast<int>(i)).box(), look.gains[i]);
  }
}

void paint_list(QPainter& painter, const ListState& look) {
  paint_song_list(painter, control_box("PlayList").box(), look.songs);
  paint_named_key(painter, "UpList", look.up);
  paint_named_key(painter, "DownList", look.down);
  paint_named_key(painter, "LoadList", look.open);
  paint_named_key(painter, "SaveList", look.save);
}

void paint_board_controls(QPainter& painter, const BoardState& look) {
  constexpr std::string_view kLampNames[] = {"MMLEDX1", "MMLEDX2", "MMLEDX3", "MMLEDX4", "MMLEDX5", "MMLEDX6"};
  constexpr std::string_view kSwitchNames[] = {"MMSwitch1", "MMSwitch2", "MMSwitch3", "MMSwitch4"};
  for (std::size_t i = 0; i < look.lamps.size(); ++i) {
    paint_lamp_button(painter, control_box(kLampNames[i]).box(), look.lamps[i]);
  }
  for (std::size_t i = 0; i < look.switches.size(); ++i) {
    paint_rotary(painter, rotary_place(control_box(kSwitchNames[i])), look.switches[i]);
  }
  for (std::size_t i = 0; i < look.spinners.size(); ++i) {
    paint_spinner(painter, control_box(kSpinnerNames[i]).box(), look.spinners[i]);
  }
}

}  // namespace

void paint_panel(QPainter& painter, const PanelState& look) {
  paint_background(painter, look.window);
  paint_head(painter, look);
  paint_display_panel(painter, look.display);
  paint_transport(painter, look.transport);
  if (look.window.size == WindowSize::Compact) return;
  paint_mix(painter, look.mix);
  paint_visual(painter, look.visual);
  if (look.window.song_list) {
    paint_list(painter, look.list);
  } else {
    paint_bands(painter, look.equalizer);
  }
  if (look.window.size == WindowSize::Board) paint_board_controls(painter, look.board);
}

}  // namespace tandem

// The settings board of the spectrum analyser: lamp buttons, spinners, rotary switches. UI thread.
// A lamp button is on while it is lime and off while it is green. The "Default" lamp MMLEDX6 is yellow while the board
// holds the default settings and olive once anything has been changed.
#pragma once

#include <cstddef>
#include <cstdint>

#include "audio/sound_graph.h"

namespace tandem {

struct PanelControls;
class Spinner;

class AnalyserBoard {
 public:
  AnalyserBoard(PanelControls& controls, SoundGraph& sound) : controls_(controls), sound_(sound) {}

  // Lamp buttons by their place in kOptionLamps: Grid, L.e.d., Inactive, Log/Lin, Pick.
  void click_option(std::size_t option);
  void set_option(std::size_t option, bool on);  // lamp and analyser, not the "Default" lamp

  void change_spinner(std::size_t spinner);        // by its place in kSpinners
  void change_board_switch(std::size_t selector);  // by its place in kBoardSwitches

  // The buttons of three spinners work on the analyser's own value and show what it took.
  void step_fft_length(bool up);        // MMLEDSpin2: doubled or halved
  void step_horizontal_scale(bool up);  // MMLEDSpin6: doubled or halved
  void step_vertical_scale(bool up);    // MMLEDSpin3: by 1 below ten, by 10 above

  // Olive: restores the defaults. Yellow: becomes olive and nothing else.
  void click_default();

  // ShowControls: the window grows by the board, or shrinks again.
  void show_or_hide_board();

 private:
  void set_led_style(bool on);
  void step(SpectrumSetting setting, Spinner& spinner, std::int32_t value);
  void restore_controls();
  void restore_analyser();
  void mark_changed();

  PanelControls& controls_;
  SoundGraph& sound_;
};

}  // namespace tandem

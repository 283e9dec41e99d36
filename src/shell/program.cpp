#include "shell/program.h"

#include "shell/panel_wiring.h"

namespace tandem {

Program::Program(const MakeGraph& make_graph, const Environment& environment)
    : sound(make_graph(timers)),
      controls(environment.dialog, timers),
      list(controls, sound, state, SongTable),
      loading(controls, sound, state, SongTable, environment.upper_case),
      files(controls, sound, state, SongTable),
      display(controls, sound, state, SongTable, environment.upper_case, environment.time_of_day),
      transport(controls, sound, state, SongTable, display),
      mix(controls, sound, state, SongTable, display, transport),
      pitch(controls, sound, state),
      seeking(controls, sound, state),
      equalizer(controls, sound, state),
      board(controls, sound),
      selector(controls, sound),
      settings(controls, state, environment.program_directory),
      panel({controls, sound, state, settings, equalizer, board, selector, mix}) {
  wire(*this, environment.show_message);
}

}  // namespace tandem

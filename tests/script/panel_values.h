// What of the program can be printed, by name.
#pragma once

#include "script/value_table.h"
#include "shell/program.h"

namespace tandem {

void add_control_values(ValueTable& table, PanelControls& controls);
void add_component_values(ValueTable& table, const SoundGraph& sound);
void add_state_values(ValueTable& table, const RunState& state, const SongEntries& song_table);

}  // namespace tandem

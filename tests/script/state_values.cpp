#include <array>
#include <cstddef>

#include "script/panel_values.h"

namespace tandem {

namespace {

template <std::size_t count>
void add_array(ValueTable& table, const std::string& name, const std::array<std::int16_t, count>& values) {
  for (std::size_t i = 0; i < count; ++i)
    table.add(name + "(" + std::to_string(i) + ")", [&values, i] { return values[i]; });
}

void add_flags(ValueTable& table, const RunState& s) {
  table.add("MixStarted", [&s] { return s.MixStarted != kFalse; });
  table.add("NextSongLoaded", [&s] { return s.NextSongLoaded != kFalse; });
  table.add("SeekDragging", [&s] { return s.SeekDragging != kFalse; });
  table.add("PitchMoving", [&s] { return s.PitchMoving != kFalse; });
}

void add_settings(ValueTable& table, const RunState& s) {
  add_array(table, "EqLevels", s.EqLevels);
  add_array(table, "SpinValues", s.SpinValues);
  add_array(table, "SwitchPositions", s.SwitchPositions);
  add_array(table, "OptionFlags", s.OptionFlags);
  table.add("SavedVolume", [&s] { return s.SavedVolume; });
  table.add("DisplayChoice", [&s] { return s.DisplayChoice; });
  table.add("LastFolder", [&s] { return s.LastFolder; });
}

void add_songs(ValueTable& table, const SongEntries& songs) {
  for (std::int32_t number = 0; number <= SongEntries::kLastSong; ++number) {
    const std::string name = "SongTable(" + std::to_string(number) + ")";
    table.add(name + ".SongFile", [&songs, number] { return songs.at(number).SongFile; });
    table.add(name + ".SongLength", [&songs, number] { return songs.at(number).SongLength; });
  }
}

}  // namespace

void add_state_values(ValueTable& table, const RunState& state, const SongEntries& song_table) {
  const RunState& s = state;
  table.add("SongCount", [&s] { return s.SongCount; });
  table.add("CurrentSong", [&s] { return s.CurrentSong; });
  table.add("ActiveDeck", [&s] { return s.ActiveDeck; });
  table.add("SelectedEntry", [&s] { return s.SelectedEntry; });
  table.add("MixTimeMs", [&s] { return s.MixTimeMs; });
  table.add("BufferMode", [&s] { return s.BufferMode; });
  table.add("LoopIndex", [&s] { return s.LoopIndex; });
  table.add("ScanIndex", [&s] { return s.ScanIndex; });
  table.add("BandIndex", [&s] { return s.BandIndex; });
  table.add("BandLow", [&s] { return s.BandLow; });
  table.add("BandHigh", [&s] { return s.BandHigh; });
  add_flags(table, s);
  add_settings(table, s);
  add_songs(table, song_table);
}

}  // namespace tandem

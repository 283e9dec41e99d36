#include <cstddef>

#include "logged_graph/setting_names.h"
#include "script/panel_values.h"

namespace tandem {

namespace {

std::string indexed(const std::string& name, std::size_t index) { return name + "(" + std::to_string(index) + ")"; }

void add_reader(ValueTable& table, const std::string& name, const MMAudioFileX& reader) {
  table.add(name + ".FileName", [&reader] { return reader.FileName(); });
  table.add(name + ".Length", [&reader] { return reader.Length(); });
  table.add(name + ".Position", [&reader] { return reader.Position(); });
}

void add_equalizer(ValueTable& table, const MMEqualizerX& equalizer) {
  table.add("EQ.Filters.Count", [&equalizer] { return equalizer.FilterCount(); });
  table.add("EQ.Bypassed", [&equalizer] { return equalizer.Bypassed(); });
  for (std::size_t band = 0; band < kBands; ++band) {
    const std::string name = indexed("EQ.Filters", band);
    const int index = static_cast<int>(band);
    table.add(name + ".LowEdge", [&equalizer, index] { return equalizer.filter(index).LowEdge; });
    table.add(name + ".HighEdge", [&equalizer, index] { return equalizer.filter(index).HighEdge; });
    table.add(name + ".Gain", [&equalizer, index] { return equalizer.filter(index).Gain; });
  }
}

void add_display(ValueTable& table, const std::string& name, const MMDisplayX& display) {
  table.add(name + ".Enabled", [&display] { return display.Enabled(); });
  table.add(name + ".Visible", [&display] { return display.Visible(); });
}

void add_displays(ValueTable& table, const SoundGraph& sound) {
  add_display(table, "MMSpectrum1", *sound.MMSpectrum1);
  add_display(table, "MMMeterX1", *sound.MMMeterX1);
  add_display(table, "MMMeterX2", *sound.MMMeterX2);
  add_display(table, "MMLevelX1", *sound.MMLevelX1);
  add_display(table, "MMOscopeX1", *sound.MMOscopeX1);
  const MMSpectrumX& analyser = *sound.MMSpectrum1;
  for (const SettingName& each : setting_names())
    table.add_word("MMSpectrum1." + std::string(each.name),
                   [&analyser, setting = each.setting] { return setting_text(setting, analyser.get(setting)); });
  const MMConnectorX& connector = *sound.MMConnectorX1;
  for (const SlotName& each : slot_names())
    table.add("MMConnectorX1." + std::string(each.name),
              [&connector, slot = each.slot] { return connector.target(slot); });
}

void add_timer(ValueTable& table, const std::string& name, const MMHiTimerX& timer) {
  table.add(name + ".Interval", [&timer] { return timer.Interval(); });
  table.add(name + ".Enabled", [&timer] { return timer.Enabled(); });
}

}  // namespace

void add_component_values(ValueTable& table, const SoundGraph& sound) {
  const MMWaveMixerX& mixer = *sound.WaveMixer;
  for (std::size_t deck = 0; deck < kDecks; ++deck) {
    add_reader(table, indexed("AudioFile", deck), *sound.AudioFile[deck]);
    const MMPitchX& pitch = *sound.Pitch[deck];
    table.add(indexed("Pitch", deck) + ".Value", [&pitch] { return static_cast<double>(pitch.Value()); });
    const int input = static_cast<int>(deck);
    table.add(indexed("WaveMixer.Mute", deck), [&mixer, input] { return mixer.Mute(input); });
  }
  add_reader(table, "TempFile", *sound.TempFile);
  table.add("WaveMixer.Volume", [&mixer] { return mixer.Volume(); });
  add_equalizer(table, *sound.EQ);
  const MMWaveOutX& output = *sound.WaveOut;
  table.add("WaveOut.BufferSize", [&output] { return output.BufferSize(); });
  add_displays(table, sound);
  add_timer(table, "MixTimer", *sound.MixTimer);
  add_timer(table, "Timer", *sound.Timer);
  add_timer(table, "ListTimer", *sound.ListTimer);
}

}  // namespace tandem

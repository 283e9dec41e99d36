#include "settings/settings_file.h"

#include <cstddef>
#include <cstdint>

#include "base/runtime_error.h"
#include "base/whole_file.h"
#include "controls/panel_controls.h"
#include "controls/panel_groups.h"

namespace tandem {

std::string factory_settings() {
  std::string text;
  for (std::size_t band = 0; band < kBands; ++band) text += number_line(0);
  for (const int value : {32768, 7, 512, 20, 25, 1, 1, 500, 1, 3, 1, 1, 1, 0, 0, 0, 0, 0, 0, 2500, 0})
    text += number_line(value);
  return text + text_line("");
}

std::string SettingsFile::text() const {
  std::string text;
  for (const BandSlider& slider : controls_.sl0) text += number_line(slider.Position);
  text += number_line(controls_.Volume.Value);
  for (const auto spinner : kSpinners) text += number_line((controls_.*spinner).Value);
  for (const auto selector : kBoardSwitches) text += number_line((controls_.*selector).Position);
  text += number_line(controls_.MMSwitchX1.Position);
  for (const auto lamp : kOptionLamps) text += number_line((controls_.*lamp).LEDColor == clGreen ? 0 : 1);
  for (const LeadTime& lead : kLeadTimes)
    if ((controls_.*lead.lamp).LEDColor == kLeadLit) text += number_line(lead.milliseconds);
  text += number_line(state_.BufferMode);
  return text + text_line(state_.LastFolder);
}

void SettingsFile::write() const { replace_whole_file(path_, text()); }

void SettingsFile::read() {
  try {
    read_from(read_whole_file(path_));
  } catch (const RuntimeError& error) {
    if (error.kind() != RuntimeErrorKind::FileNotFound && error.kind() != RuntimeErrorKind::InputPastEnd) throw;
    read_from(factory_settings());
  }
}

void SettingsFile::read_from(std::string_view text) {
  FieldReader fields(text);
  try {
    read_levels(fields);
    read_variables(fields);
  } catch (const RuntimeError& error) {
    if (error.kind() != RuntimeErrorKind::Overflow) throw;
    throw RuntimeError(error.kind(), path_ + ", line " + std::to_string(fields.line()));
  }
}

void SettingsFile::read_levels(FieldReader& fields) {
  for (state_.LoopIndex = 0; state_.LoopIndex < static_cast<std::int16_t>(kBands); ++state_.LoopIndex) {
    const auto k = static_cast<std::size_t>(state_.LoopIndex);
    state_.EqLevels[k] = fields.read_int16();
    controls_.sl0[k].Position = state_.EqLevels[k];
  }
}

void SettingsFile::read_variables(FieldReader& fields) {
  state_.SavedVolume = fields.read_int32();
  for (std::size_t i = 0; i < kSpinners.size(); ++i) state_.SpinValues[i] = fields.read_int16();
  for (std::size_t i = 0; i < kBoardSwitches.size(); ++i) state_.SwitchPositions[i] = fields.read_int16();
  state_.DisplayChoice = fields.read_int16();
  for (std::size_t i = 0; i < kOptionLamps.size(); ++i) state_.OptionFlags[i] = fields.read_int16();
  state_.MixTimeMs = fields.read_int16();
  state_.BufferMode = fields.read_int16();
  state_.LastFolder = fields.read_plain_text();
}

}  // namespace tandem

// Names of the analyser's settings and of the connector's slots, as the tools print them.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "audio/mm_displays.h"
#include "audio/mm_stages.h"

namespace tandem {

struct SettingName {
  SpectrumSetting setting;
  std::string_view name;
  bool is_flag;  // shown as True or False
};
std::span<const SettingName> setting_names();  // in the order of SpectrumSetting
std::string setting_text(SpectrumSetting setting, int value);

struct SlotName {
  MMConnectorX::Slot slot;
  std::string_view name;
};
std::span<const SlotName> slot_names();  // in the order of the slots

}  // namespace tandem

#include "logged_graph/setting_names.h"

#include <array>
#include <cstddef>

#include "logged_graph/value_text.h"

namespace tandem {

namespace {

constexpr std::array<SettingName, static_cast<std::size_t>(SpectrumSetting::Count)> kSettings{
    {{SpectrumSetting::Kind, "Kind", false},
     {SpectrumSetting::Window, "Window", false},
     {SpectrumSetting::Gain, "Gain", false},
     {SpectrumSetting::DecayMode, "DecayMode", false},
     {SpectrumSetting::Decay, "Decay", false},
     {SpectrumSetting::FFTLength, "FFTLength", false},
     {SpectrumSetting::VerticalScale, "VerticalScale", false},
     {SpectrumSetting::HorizontalScale, "HorizontalScale", false},
     {SpectrumSetting::ReferenceFrequency, "ReferenceFrequency", false},
     {SpectrumSetting::PeakCount, "PeakCount", false},
     {SpectrumSetting::PeakDelay, "PeakDelay", false},
     {SpectrumSetting::PeakSpeed, "PeakSpeed", false},
     {SpectrumSetting::LogAmp, "LogAmp", true},
     {SpectrumSetting::DrawGrid, "DrawGrid", true},
     {SpectrumSetting::DrawInactive, "DrawInactive", true},
     {SpectrumSetting::DrawPeaks, "DrawPeaks", true},
     {SpectrumSetting::SolidBars, "SolidBars", true},
     {SpectrumSetting::SolidMarks, "SolidMarks", true},
     {SpectrumSetting::DrawMode, "DrawMode", false}}};

constexpr std::array<SlotName, 5> kSlots{{{MMConnectorX::Slot::Spectrum, "Spectrum"},
                                          {MMConnectorX::Slot::LeftMeter, "LeftMeter"},
                                          {MMConnectorX::Slot::RightMeter, "RightMeter"},
                                          {MMConnectorX::Slot::Level, "Level"},
                                          {MMConnectorX::Slot::Oscilloscope, "Oscilloscope"}}};

}  // namespace

std::span<const SettingName> setting_names() { return kSettings; }
std::span<const SlotName> slot_names() { return kSlots; }

std::string setting_text(SpectrumSetting setting, int value) {
  return kSettings.at(static_cast<std::size_t>(setting)).is_flag ? boolean_word(value != 0) : std::to_string(value);
}

}  // namespace tandem

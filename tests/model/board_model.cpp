// The analyser's board, the choice of display, the window's size.
#include <algorithm>
#include <bit>

#include "model/panel_model.h"

namespace tandem::model {

namespace {

using Setting = SpectrumSetting;

struct Range {
  Number least, most;
};
constexpr std::array<Range, 8> kSpins{{{1, 16}, {8, 2048}, {1, 200}, {0, 50}, {0, 5}, {1, 16}, {50, 22050}, {0, 50}}};
constexpr std::array<Setting, 8> kSpinSettings{
    Setting::Decay,     Setting::FFTLength,       Setting::VerticalScale,      Setting::PeakDelay,
    Setting::PeakCount, Setting::HorizontalScale, Setting::ReferenceFrequency, Setting::PeakSpeed};
constexpr std::array<Setting, 4> kSwitchSettings{Setting::Kind, Setting::Window, Setting::DecayMode, Setting::Gain};
constexpr std::array<Number, 5> kPositions{6, 7, 4, 4, 3};

// MMLEDSpin2, 3 and 6 act by their buttons alone.
bool by_buttons(std::size_t spinner) { return spinner == 1 || spinner == 2 || spinner == 5; }

Number limited(Setting setting, Number value) {
  if (setting == Setting::FFTLength)
    return static_cast<Number>(std::bit_floor(static_cast<std::uint32_t>(std::clamp(value, 4, 4096))));
  if (setting == Setting::HorizontalScale) return std::clamp(value, 1, 16);
  if (setting == Setting::VerticalScale) return std::clamp(value, 1, 200);
  return value;
}

Number stepped(Setting setting, Number value, bool up) {
  if (setting != Setting::VerticalScale) return up ? value * 2 : value / 2;
  if (up) return value < 10 ? value + 1 : value + 10;
  return value >= 11 ? value - 10 : value - 1;
}

}  // namespace

void PanelModel::set(Setting setting, Number value) {
  look.analyser.at(static_cast<std::size_t>(setting)) = limited(setting, value);
}

void PanelModel::click_led_style(Number& lamp) {
  const bool light = lamp == kGreen;
  if (!light) look.lamps[5] = kOlive;
  set(Setting::SolidBars, light ? 0 : 1);
  set(Setting::SolidMarks, light ? 0 : 1);
  set(Setting::DrawMode, get(Setting::SolidMarks) != 0 ? 2 : 1);
  lamp = light ? kLime : kGreen;
}

void PanelModel::click_lamp(std::size_t index) {
  Number& lamp = look.lamps.at(index);
  if (index == 1) return click_led_style(lamp);
  if (index == 5) {
    if (lamp == kOlive) return restore_board();
    lamp = kOlive;
    return;
  }
  constexpr std::array<Setting, 5> kFlags{Setting::DrawGrid, Setting::Count, Setting::DrawInactive, Setting::LogAmp,
                                          Setting::DrawPeaks};
  const bool light = lamp == kGreen;
  set(kFlags.at(index), light ? 1 : 0);
  lamp = light ? kLime : kGreen;
  const bool lit_by_default = index == 2 || index == 3;
  if (light != lit_by_default) look.lamps[5] = kOlive;
}

void PanelModel::move_spinner(std::size_t spinner, Number moved) {
  const Range range = kSpins.at(spinner);
  look.spinners.at(spinner) = std::clamp(moved, range.least, range.most);
  if (by_buttons(spinner)) return;
  look.lamps[5] = kOlive;
  set(kSpinSettings.at(spinner), look.spinners.at(spinner));
}

void PanelModel::press_spinner(std::size_t spinner, bool up) {
  if (!by_buttons(spinner)) return move_spinner(spinner, look.spinners.at(spinner) + (up ? 1 : -1));
  const Setting setting = kSpinSettings.at(spinner);
  look.lamps[5] = kOlive;
  set(setting, stepped(setting, get(setting), up));
  move_spinner(spinner, get(setting));
}

void PanelModel::move_switch(std::size_t index, Number position) {
  look.switches.at(index) = std::clamp(position, 0, kPositions.at(index) - 1);
  look.lamps[5] = kOlive;
  if (index < 4) return set(kSwitchSettings.at(index), look.switches.at(index));
  choose_display(look.switches.at(index));
}

void PanelModel::choose_display(Number position) {
  if (position == 0) show_displays({true, false, false, false, false});
  if (position == 1) show_displays({false, true, true, true, false});
  if (position == 2) show_displays({false, false, false, false, true});
}

void PanelModel::show_displays(std::array<bool, 5> chosen) {
  const std::array<std::string, 5> names{"MMSpectrum1", "MMMeterX1", "MMMeterX2", "MMLevelX1", "MMOscopeX1"};
  for (std::size_t i = 0; i < chosen.size(); ++i) {
    look.targets.at(i) = chosen.at(i) ? names.at(i) : "";
    look.displays.at(i).Enabled = look.displays.at(i).Visible = chosen.at(i);
  }
}

void PanelModel::restore_board() {
  constexpr std::array<Number, 8> kValues{8, 64, 40, 18, 1, 1, 1000, 20};
  for (std::size_t i = 0; i < kValues.size(); ++i) move_spinner(i, kValues.at(i));
  constexpr std::array<Number, 5> kSwitches{3, 1, 1, 1, 0};
  for (std::size_t i = 0; i < kSwitches.size(); ++i) move_switch(i, kSwitches.at(i));
  look.lamps = {kGreen, kLime, kLime, kLime, kGreen, kYellow};
  for (std::size_t i = 0; i < kValues.size(); ++i) set(kSpinSettings.at(i), look.spinners.at(i));
  for (const Setting off : {Setting::DrawGrid, Setting::SolidBars, Setting::SolidMarks, Setting::DrawPeaks})
    set(off, 0);
  set(Setting::DrawMode, 1);
  set(Setting::DrawInactive, 1);
  set(Setting::LogAmp, 1);
}

void PanelModel::toggle_board() {
  const bool show = look.ShowControls.Colour == kGreen;
  look.Height = show ? 6390 : 3870;
  look.ShowControls.Colour = show ? kLime : kGreen;
}

void PanelModel::toggle_size() {
  if (look.Width == 9105) {
    look.Height = 2475;
    look.Width = 3930;
    look.ShowControls.Colour = kGreen;
    return;
  }
  look.Height = 3870;
  look.Width = 9105;
  look.Top = (1080 * 15 - look.Height) / 2;
}

}  // namespace tandem::model

#include "shaping/analyser_board.h"

#include <array>

#include "controls/panel_controls.h"
#include "controls/panel_groups.h"
#include "controls/panel_sizes.h"

namespace tandem {

namespace {

// Which analyser flag a lamp button drives, and whether it is on by default. L.e.d. has its own way.
struct Option {
  SpectrumSetting flag;
  bool on_by_default;
};
constexpr std::size_t kLedStyle = 1;
constexpr std::array<Option, 5> kOptions{{{SpectrumSetting::DrawGrid, false},
                                          {SpectrumSetting::SolidBars, true},
                                          {SpectrumSetting::DrawInactive, true},
                                          {SpectrumSetting::LogAmp, true},
                                          {SpectrumSetting::DrawPeaks, false}}};

struct SpinnerSetting {
  SpectrumSetting setting;
  std::int32_t default_value;
};
constexpr std::array<SpinnerSetting, 8> kSpinnerSettings{{{SpectrumSetting::Decay, 8},
                                                          {SpectrumSetting::FFTLength, 64},
                                                          {SpectrumSetting::VerticalScale, 40},
                                                          {SpectrumSetting::PeakDelay, 18},
                                                          {SpectrumSetting::PeakCount, 1},
                                                          {SpectrumSetting::HorizontalScale, 1},
                                                          {SpectrumSetting::ReferenceFrequency, 1000},
                                                          {SpectrumSetting::PeakSpeed, 20}}};

constexpr std::array<SpectrumSetting, 4> kSwitchSettings{SpectrumSetting::Kind, SpectrumSetting::Window,
                                                         SpectrumSetting::DecayMode, SpectrumSetting::Gain};

}  // namespace

void AnalyserBoard::click_option(std::size_t option) {
  const bool on = (controls_.*kOptionLamps.at(option)).LEDColor == clGreen;
  // A change back towards the default does not light the "Default" lamp again.
  if (on != kOptions.at(option).on_by_default) mark_changed();
  set_option(option, on);
}

void AnalyserBoard::set_option(std::size_t option, bool on) {
  if (option == kLedStyle) {
    set_led_style(on);
  } else {
    sound_.MMSpectrum1->put(kOptions.at(option).flag, on ? 1 : 0);
  }
  (controls_.*kOptionLamps.at(option)).LEDColor = on ? clLime : clGreen;
}

// LED spots need both flags off; the mode follows what the analyser made of the second one.
void AnalyserBoard::set_led_style(bool on) {
  MMSpectrumX& analyser = *sound_.MMSpectrum1;
  analyser.put(SpectrumSetting::SolidBars, on ? 0 : 1);
  analyser.put(SpectrumSetting::SolidMarks, on ? 0 : 1);
  analyser.put(SpectrumSetting::DrawMode, analyser.get(SpectrumSetting::SolidMarks) != 0 ? 2 : 1);
}

void AnalyserBoard::change_spinner(std::size_t spinner) {
  mark_changed();
  sound_.MMSpectrum1->put(kSpinnerSettings.at(spinner).setting, (controls_.*kSpinners.at(spinner)).Value);
}

void AnalyserBoard::change_board_switch(std::size_t selector) {
  mark_changed();
  sound_.MMSpectrum1->put(kSwitchSettings.at(selector), (controls_.*kBoardSwitches.at(selector)).Position);
}

void AnalyserBoard::step_fft_length(bool up) {
  const std::int32_t length = sound_.MMSpectrum1->get(SpectrumSetting::FFTLength);
  step(SpectrumSetting::FFTLength, controls_.MMLEDSpin2, up ? length * 2 : length / 2);
}

void AnalyserBoard::step_horizontal_scale(bool up) {
  const std::int32_t scale = sound_.MMSpectrum1->get(SpectrumSetting::HorizontalScale);
  step(SpectrumSetting::HorizontalScale, controls_.MMLEDSpin6, up ? scale * 2 : scale / 2);
}

// The thresholds differ on purpose: up from 9 comes 10, then 20; down from 20 comes 10, then 9; down from 11 comes 1.
void AnalyserBoard::step_vertical_scale(bool up) {
  const std::int32_t scale = sound_.MMSpectrum1->get(SpectrumSetting::VerticalScale);
  const std::int32_t more = scale < 10 ? scale + 1 : scale + 10;
  const std::int32_t less = scale >= 11 ? scale - 10 : scale - 1;
  step(SpectrumSetting::VerticalScale, controls_.MMLEDSpin3, up ? more : less);
}

void AnalyserBoard::step(SpectrumSetting setting, Spinner& spinner, std::int32_t value) {
  mark_changed();
  sound_.MMSpectrum1->put(setting, value);
  spinner.Value = sound_.MMSpectrum1->get(setting);
}

void AnalyserBoard::click_default() {
  if (controls_.MMLEDX6.LEDColor != clOlive) {
    mark_changed();
    return;
  }
  restore_controls();
  restore_analyser();
}

// The lamps come last: the spinners' and switches' own handling turns the "Default" lamp olive.
void AnalyserBoard::restore_controls() {
  for (std::size_t i = 0; i < kSpinners.size(); ++i)
    (controls_.*kSpinners[i]).Value = kSpinnerSettings[i].default_value;
  controls_.MMSwitch2.Position = 1;
  controls_.MMSwitch4.Position = 1;
  controls_.MMSwitch1.Position = 3;
  controls_.MMSwitch3.Position = 1;
  controls_.MMSwitchX1.Position = 0;
  for (std::size_t i = 0; i < kOptionLamps.size(); ++i)
    (controls_.*kOptionLamps[i]).LEDColor = kOptions[i].on_by_default ? clLime : clGreen;
  controls_.MMLEDX6.LEDColor = clYellow;
}

void AnalyserBoard::restore_analyser() {
  MMSpectrumX& analyser = *sound_.MMSpectrum1;
  for (std::size_t i = 0; i < kSpinners.size(); ++i)
    analyser.put(kSpinnerSettings[i].setting, (controls_.*kSpinners[i]).Value);
  analyser.put(SpectrumSetting::DrawGrid, 0);
  analyser.put(SpectrumSetting::SolidBars, 0);
  analyser.put(SpectrumSetting::SolidMarks, 0);
  analyser.put(SpectrumSetting::DrawMode, 1);
  analyser.put(SpectrumSetting::DrawInactive, 1);
  analyser.put(SpectrumSetting::LogAmp, 1);
  analyser.put(SpectrumSetting::DrawPeaks, 0);
}

void AnalyserBoard::show_or_hide_board() {
  const bool show = controls_.ShowControls.BackColor == clGreen;
  controls_.Painel.Height = show ? kBoardHeight : kFullHeight;
  controls_.ShowControls.BackColor = show ? clLime : clGreen;
}

void AnalyserBoard::mark_changed() { controls_.MMLEDX6.LEDColor = clOlive; }

}  // namespace tandem

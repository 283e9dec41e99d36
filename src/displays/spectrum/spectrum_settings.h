// The settings of the spectrum analyser, each kept within its bounds. UI thread only.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "audio/mm_displays.h"

namespace tandem {

// In the order of the board's switch; the settings file keeps the number, so a new one comes last.
enum class AnalyserKind { Points, Lines, VLines, Bar, Picks, Roll };
inline constexpr int kAnalyserKinds = static_cast<int>(AnalyserKind::Roll) + 1;

class SpectrumSettings {
 public:
  SpectrumSettings();

  std::int32_t operator[](SpectrumSetting setting) const { return values_[static_cast<std::size_t>(setting)]; }
  // Takes the nearest value within the bounds (of the FFT length: the nearest lower power of two); whether that
  // changed anything.
  bool put(SpectrumSetting setting, std::int32_t value);

  bool is_on(SpectrumSetting flag) const { return (*this)[flag] != 0; }
  AnalyserKind kind() const { return static_cast<AnalyserKind>((*this)[SpectrumSetting::Kind]); }

 private:
  std::array<std::int32_t, static_cast<std::size_t>(SpectrumSetting::Count)> values_{};
};

}  // namespace tandem

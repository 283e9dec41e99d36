#include "displays/spectrum/spectrum_settings.h"

#include <algorithm>
#include <bit>

namespace tandem {

namespace {

struct Bounds {
  std::int32_t least;
  std::int32_t greatest;
  std::int32_t design;
};

// In the order of SpectrumSetting. The analyser starts with the board's "Default" values, but with a window and a gain
// of its own.
constexpr std::array<Bounds, static_cast<std::size_t>(SpectrumSetting::Count)> kBounds{{
    {0, kAnalyserKinds - 1, 3},  // Kind: Bar
    {0, 6, 3},                   // Window: Blackman
    {0, 3, 2},                   // Gain: 6 dB
    {0, 3, 1},                   // DecayMode: Step
    {1, 16, 8},                  // Decay
    {4, 4096, 64},               // FFTLength
    {1, 200, 40},                // VerticalScale
    {1, 16, 1},                  // HorizontalScale
    {50, 22050, 1000},           // ReferenceFrequency
    {0, 5, 1},                   // PeakCount
    {0, 50, 18},                 // PeakDelay
    {0, 50, 20},                 // PeakSpeed
    {0, 1, 1},                   // LogAmp
    {0, 1, 0},                   // DrawGrid
    {0, 1, 1},                   // DrawInactive
    {0, 1, 0},                   // DrawPeaks
    {0, 1, 0},                   // SolidBars
    {0, 1, 0},                   // SolidMarks
    {1, 2, 1},                   // DrawMode
}};

bool is_flag(const Bounds& bounds) { return bounds.least == 0 && bounds.greatest == 1; }

std::int32_t limited(SpectrumSetting setting, std::int32_t value) {
  const Bounds& bounds = kBounds[static_cast<std::size_t>(setting)];
  if (is_flag(bounds)) return value != 0 ? 1 : 0;
  const std::int32_t kept = std::clamp(value, bounds.least, bounds.greatest);
  if (setting != SpectrumSetting::FFTLength) return kept;
  return static_cast<std::int32_t>(std::bit_floor(static_cast<std::uint32_t>(kept)));
}

}  // namespace

SpectrumSettings::SpectrumSettings() {
  std::transform(kBounds.begin(), kBounds.end(), values_.begin(), [](const Bounds& bounds) { return bounds.design; });
}

bool SpectrumSettings::put(SpectrumSetting setting, std::int32_t value) {
  std::int32_t& kept = values_[static_cast<std::size_t>(setting)];
  const std::int32_t before = kept;
  kept = limited(setting, value);
  return kept != before;
}

}  // namespace tandem

#include "fakes/fake_displays.h"

#include <algorithm>
#include <bit>

namespace tandem::test {

namespace {

std::int32_t limited(SpectrumSetting setting, std::int32_t value) {
  switch (setting) {
    case SpectrumSetting::FFTLength:
      return static_cast<std::int32_t>(std::bit_floor(static_cast<std::uint32_t>(std::clamp(value, 4, 4096))));
    case SpectrumSetting::HorizontalScale:
      return std::clamp(value, 1, 16);
    case SpectrumSetting::VerticalScale:
      return std::clamp(value, 1, 200);
    default:
      return value;
  }
}

}  // namespace

FakeSpectrum::FakeSpectrum() {
  put(SpectrumSetting::Window, 3);
  put(SpectrumSetting::Gain, 2);
  put(SpectrumSetting::DecayMode, 1);
  put(SpectrumSetting::Decay, 8);
  put(SpectrumSetting::FFTLength, 64);
  put(SpectrumSetting::VerticalScale, 40);
  put(SpectrumSetting::HorizontalScale, 1);
  put(SpectrumSetting::PeakSpeed, 20);
  put(SpectrumSetting::LogAmp, 1);
}

void FakeSpectrum::put(SpectrumSetting setting, std::int32_t value) {
  values_.at(static_cast<std::size_t>(setting)) = limited(setting, value);
}

}  // namespace tandem::test

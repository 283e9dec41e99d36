#include "displays/spectrum/spectrum_heights.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace tandem {

namespace {

constexpr double kPower = 0.6;
constexpr double kTop = 12.0;  // dB below full scale that reach the top
constexpr double kRange = 120.0;
constexpr double kRangeExponent = -0.338;
constexpr double kDecibelsAnOctave = 3.0102999566398120;  // of power
constexpr float kOverTop = 1.5F;
constexpr float kShoulder = 0.8F;
constexpr float kOctavesANeper = 1.44269504F;

}  // namespace

HeightLaw::HeightLaw(bool logarithmic, std::int32_t vertical_scale) : logarithmic_(logarithmic) {
  const double range = kRange * std::pow(vertical_scale, kRangeExponent);
  slope_ = static_cast<float>(logarithmic ? kDecibelsAnOctave / range : kPower / 2.0);
  offset_ = static_cast<float>(logarithmic ? 1.0 + kTop / range : kPower / 2.0 * std::log2(vertical_scale));
}

float HeightLaw::height(float power) const noexcept {
  if (power <= 0.0F) return 0.0F;
  const float value = offset_ + slope_ * std::log2(power);
  return std::clamp(logarithmic_ ? value : std::exp2(value), 0.0F, kOverTop);
}

void overlap_bands(std::span<float> powers, float share) noexcept {
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = std::max(powers[i], share * powers[i - 1]);
  for (std::size_t i = powers.size(); i-- > 1;) powers[i - 1] = std::max(powers[i - 1], share * powers[i]);
}

float shouldered(float height) noexcept {
  if (height <= kShoulder) return height;
  constexpr float kOverShoulder = 1.0F - kShoulder;
  return 1.0F - kOverShoulder * std::exp2(-(height - kShoulder) / kOverShoulder * kOctavesANeper);
}

}  // namespace tandem

#include "displays/spectrum/spectrum_heights.h"

#include <algorithm>
#include <cmath>

namespace tandem {

HeightRule::HeightRule(bool logarithmic, double gain_db, std::int32_t vertical_scale)
    : logarithmic_(logarithmic),
      gain_db_(static_cast<float>(gain_db)),
      range_db_(static_cast<float>(std::clamp(2400.0 / vertical_scale, 20.0, 120.0))),
      factor_(static_cast<float>(std::pow(10.0, gain_db / 20.0) * vertical_scale / 40.0)) {}

float HeightRule::height(float power) const noexcept {
  if (power <= 0.0F) return 0.0F;
  const float height =
      logarithmic_ ? 1.0F + (10.0F * std::log10(power) + gain_db_) / range_db_ : std::sqrt(power) * factor_;
  return std::clamp(height, 0.0F, 1.0F);
}

}  // namespace tandem

// How high an amplitude stands in the spectrum.
#pragma once

#include <cstdint>

namespace tandem {

// Logarithmic: 1 + (20 log10 a + gain) / range, range = 2400 / vertical scale, kept to 20 .. 120 dB.
// Linear: a x 10^(gain / 20) x vertical scale / 40.
class HeightRule {
 public:
  HeightRule() = default;
  HeightRule(bool logarithmic, double gain_db, std::int32_t vertical_scale);

  // The height 0 .. 1 of a squared amplitude; a full-scale sine is 1.
  float height(float power) const noexcept;

 private:
  bool logarithmic_ = true;
  float gain_db_ = 0.0F;
  float range_db_ = 60.0F;
  float factor_ = 1.0F;
};

}  // namespace tandem

// How high a power stands in the spectrum. Any thread, no state.
#pragma once

#include <cstdint>
#include <span>

namespace tandem {

// Y = vertical scale, a = amplitude, a full-scale sine is 1.
// Linear: (a sqrt Y)^0.6; the root lets quiet bands be seen beside loud ones.
// Logarithmic: 1 + (20 log10 a + 12) / range, range = 120 Y^-0.338 dB: 120 at 1, 34.5 at 40, 20 at 200.
// Above the top they are cut at 1.5.
class HeightLaw {
 public:
  HeightLaw() : HeightLaw(true, 40) {}
  HeightLaw(bool logarithmic, std::int32_t vertical_scale);

  // The height of a power, which is the square of the amplitude: 0 at the bottom, 1 at the top of the glass.
  float height(float power) const noexcept;

 private:
  bool logarithmic_;
  float offset_;
  float slope_;  // of the height, or of its base-2 logarithm, over the power's base-2 logarithm
};

// A band hears its neighbours too, as the filters of an analyser overlap: `share` of the power for each band on the
// way. Music of few notes would else be a comb, with dark columns between tall ones that the ear does not hear as
// holes.
void overlap_bands(std::span<float> powers, float share) noexcept;

// Bends a height: as it is up to 0.8, above that nearer and nearer to 1 but never over it, so that loud bands still
// move below the top.
float shouldered(float height) noexcept;

}  // namespace tandem

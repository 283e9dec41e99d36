// A band hears its neighbours, softer.

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "displays/enabled_display.h"
#include "displays/spectrum/spectrum_analyser.h"
#include "displays/spectrum/spectrum_heights.h"
#include "displays/tones.h"

namespace tandem {
namespace {

TEST(BandOverlap, ANeighbourHearsItsShareAndTheNextOneTheShareOfThat) {
  std::vector<float> powers{0.0F, 0.0F, 1.0F, 0.0F, 0.5F, 0.0F};
  overlap_bands(powers, 0.1F);
  EXPECT_EQ(powers, (std::vector<float>{0.1F * 0.1F, 0.1F, 1.0F, 0.1F, 0.5F, 0.1F * 0.5F}));
  const std::vector<float> before = powers;
  overlap_bands(powers, 0.1F);
  EXPECT_EQ(powers, before) << "what has overlapped overlaps no further";
}

// The column of a tone of 1 kHz, the second one beside it, and one far away.
std::array<double, 3> columns_with_a_tone(int horizontal_scale) {
  using enum SpectrumSetting;
  auto analyser = enabled<SpectrumAnalyser>();
  analyser.put(Gain, 0);
  analyser.put(DecayMode, 3);
  analyser.put(VerticalScale, 20);
  analyser.put(HorizontalScale, horizontal_scale);
  Screen(analyser, sine(frames_in(1.0), 1000.0, 0.1)).run(1.0);
  const SpectrumReading& picture = analyser.picture();
  const auto at = static_cast<std::size_t>(picture.axis.position(1000.0) * picture.grid.columns);
  return {picture.heights[0][at], picture.heights[0][at + 2], picture.heights[0][at + 12]};
}

TEST(BandOverlap, ATonesNeighboursAreLitAndWhatIsFarAwayIsDark) {
  const auto [tone, beside, away] = columns_with_a_tone(1);
  EXPECT_GT(beside, 0.1);
  EXPECT_LT(beside, tone - 0.3);
  EXPECT_EQ(away, 0.0);
}

TEST(BandOverlap, OnAnEnlargedAxisColumnsAreAsSharpAsTheTransform) {
  const auto [tone, beside, away] = columns_with_a_tone(16);
  EXPECT_GT(tone, 0.5);
  EXPECT_EQ(away, 0.0);
}

}  // namespace
}  // namespace tandem

#include "paint/displays/spectrum_scale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "paint/displays/spectrum_backdrop.h"
#include "paint/spectrum_well.h"

namespace tandem {
namespace {

/// x from the right half's left end of what the condition takes of the scale strip.
std::vector<int> on_strip(const SpectrumStyle& style, const std::function<bool(QRgb)>& is_meant) {
  const SpectrumBackdrop face(style, kArea, kWell);
  std::vector<int> found;
  for (int x = 0; x < style.grid.half_width(); ++x) {
    if (is_meant(face.dark().pixel(style.grid.left[1] + x, style.grid.strip_top + 1))) found.push_back(x);
  }
  return found;
}

bool is_black(QRgb pixel) { return qBlue(pixel) < 60; }
bool is_silver(QRgb pixel) { return qRed(pixel) > 150; }

TEST(Spectrum, NotchesTheScaleStripAtTheOctavesOfTheReference) {
  SpectrumStyle style;
  // 62.5, 125, 250, 500, then 1000 with a gap at each side, 2000 ... 16000; 18.4 px an octave.
  const int reference = static_cast<int>(std::lround(style.axis.position(1000) * 165));
  const std::vector<int> notches = on_strip(style, is_black);
  std::vector<int> expected;
  for (const double hz : {62.5, 125., 250., 500.})
    expected.push_back(static_cast<int>(std::lround(style.axis.position(hz) * 165)));
  expected.push_back(reference - 3);
  expected.push_back(reference + 1);
  for (const double hz : {2000., 4000., 8000., 16000.})
    expected.push_back(static_cast<int>(std::lround(style.axis.position(hz) * 165)));
  ASSERT_EQ(notches.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_NEAR(notches[i], expected[i], 1) << i;
  EXPECT_EQ(on_strip(style, is_silver).size(), 3U) << "the reference itself";
}

TEST(Spectrum, ACloserLookHasItsOwnNotches) {
  SpectrumStyle style;
  style.axis = shown_axis(4, 1000);
  EXPECT_NEAR(on_strip(style, is_silver).at(1), 82, 1) << "the reference in the middle";
  EXPECT_EQ(on_strip(style, is_black).size(), 4U) << "500, 2000 and both sides of the mark";
}

TEST(Spectrum, TheRollIsNotchedEverySecond) {
  SpectrumStyle style;
  style.kind = AnalyserKind::Roll;
  const std::vector<int> notches = on_strip(style, is_black);
  ASSERT_EQ(notches.size(), 5U);
  for (std::size_t i = 1; i < notches.size(); ++i) EXPECT_EQ(notches[i] - notches[i - 1], 30);
  EXPECT_TRUE(on_strip(style, is_silver).empty());
}

}  // namespace
}  // namespace tandem

#include "displays/spectrum/stereo_spectrum.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "displays/tones.h"

namespace tandem {
namespace {

double db(float power) { return 10.0 * std::log10(static_cast<double>(power) + 1e-30); }

// The power of all bins of a full-scale sine at `bin` bins.
double level_at(FftWindow window, std::size_t length, double bin, double phase = 0.3) {
  const Sound tone = sine(length, bin * kHeardRate / static_cast<double>(length), 1.0, phase);
  StereoSpectrum spectrum;
  spectrum.prepare(length, window);
  spectrum.analyse(tone, 0, length / 2);
  const auto power = spectrum.power(0);
  return db(std::accumulate(power.begin(), power.end(), 0.0F));
}

TEST(FftWindow, HasItsCoherentGain) {
  // The integrals of the shapes; the bell's is 0.4 sqrt(2 pi) / 2 erf(2.5 / sqrt 2).
  const std::array<double, 7> gains{1.0, 0.54, 0.5, 0.42, 0.49509, 2.0 / 3.0, 0.375};
  std::vector<float> points(4096);
  for (std::size_t i = 0; i < gains.size(); ++i) {
    fill_window(kWindows[i], points);
    EXPECT_NEAR(std::accumulate(points.begin(), points.end(), 0.0) / 4096.0, gains[i], 1e-4) << i;
    EXPECT_FLOAT_EQ(points[2048], 1.0F);
    EXPECT_FLOAT_EQ(points[1000], points[4096 - 1000]);
  }
}

TEST(StereoSpectrum, APowerOfOneIsAFullScaleSineForEveryWindow) {
  for (const FftWindow window : kWindows)
    for (const std::size_t length : {64U, 128U, 256U, 1024U, 2048U})
      for (const double phase : {0.0, 0.7, 1.9, 2.6}) {
        const double quarter = static_cast<double>(length) / 4.0;
        EXPECT_NEAR(level_at(window, length, quarter, phase), 0.0, 0.1) << length << " " << static_cast<int>(window);
        EXPECT_NEAR(level_at(window, length, quarter + 0.5, phase), 0.0, 0.1) << "between two bins";
      }
}

TEST(StereoSpectrum, KeepsTheSidesApart) {
  constexpr std::size_t kLength = 512;
  const Sound left = sine(kLength, 40.0 * kHeardRate / kLength);
  const Sound right = sine(kLength, 90.0 * kHeardRate / kLength, 0.1, 1.0);
  Sound sound(kLength);
  for (std::size_t i = 0; i < kLength; ++i) sound[i] = {left[i].left, right[i].right};
  StereoSpectrum spectrum;
  spectrum.prepare(kLength, FftWindow::Blackman);
  spectrum.analyse(sound, 1, kLength / 2);
  const auto about = [&](std::size_t side, std::size_t bin) {
    const auto power = spectrum.power(side).subspan(bin - 4, 9);
    return db(std::accumulate(power.begin(), power.end(), 0.0F));
  };
  EXPECT_NEAR(about(0, 40), 0.0, 0.01);
  EXPECT_NEAR(about(1, 90), -20.0, 0.01);
  EXPECT_LT(about(1, 40), -100.0);
  EXPECT_LT(about(0, 90), -100.0);
}

TEST(StereoSpectrum, GivesOnlyTheBinsThatAreAskedFor) {
  StereoSpectrum spectrum;
  spectrum.prepare(64, FftWindow::Hanning);
  spectrum.analyse(both(64, [](double) { return 0.5; }), 0, 8);
  EXPECT_EQ(spectrum.power(0)[0], 0.0F) << "nothing of 0 Hz";
  EXPECT_GT(spectrum.power(0)[1], 0.0F);
  EXPECT_EQ(spectrum.power(0)[8], 0.0F);
}

}  // namespace
}  // namespace tandem

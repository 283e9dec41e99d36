#include "displays/spectrum/stereo_spectrum.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "displays/tones.h"

namespace tandem {
namespace {

constexpr std::array kWindows{FftWindow::Rectang,   FftWindow::Hamming, FftWindow::Hanning, FftWindow::Blackman,
                              FftWindow::Gaussiano, FftWindow::Welch,   FftWindow::Parzen};

double db(float power) { return 10.0 * std::log10(static_cast<double>(power) + 1e-30); }

// The greatest bin of a full-scale sine at `bin` bins.
double level_at(FftWindow window, std::size_t length, double bin, double phase = 0.3) {
  HeardSound heard(4096);
  heard.feed(sine(length, bin * kHeardRate / static_cast<double>(length), 1.0, phase));
  StereoSpectrum spectrum;
  spectrum.prepare(length, window);
  spectrum.analyse(heard);
  const auto power = spectrum.power(0);
  return db(*std::max_element(power.begin(), power.end()));
}

TEST(FftWindow, HasItsCoherentGain) {
  // The integrals of the shapes; the bell's is 0.4 sqrt(2 pi) / 2 erf(2.5 / sqrt 2).
  const std::array<double, 7> gains{1.0, 0.54, 0.5, 0.42, 0.49509, 2.0 / 3.0, 0.375};
  std::vector<float> points(4096);
  for (std::size_t i = 0; i < gains.size(); ++i) {
    fill_window(kWindows[i], points);
    EXPECT_NEAR(coherent_gain(points), gains[i], 1e-4) << i;
    EXPECT_FLOAT_EQ(points[2048], 1.0F);
    EXPECT_FLOAT_EQ(points[1000], points[4096 - 1000]);
  }
}

// How much of the mirror image at the negative frequency, length / 2 bins away, the window lets through.
double image_share(FftWindow window, std::size_t length) {
  std::vector<float> points(length);
  fill_window(window, points);
  double image = 0.0;
  for (std::size_t i = 0; i < length; ++i) image += i % 2 == 0 ? points[i] : -points[i];
  return std::abs(image) / (coherent_gain(points) * static_cast<double>(length));
}

TEST(StereoSpectrum, FullScaleSineIsZeroDecibels) {
  for (const FftWindow window : kWindows)
    for (std::size_t length = 4; length <= 4096; length *= 2) {
      const double image = image_share(window, length);
      // From 16 points on the image lies outside the main lobe of every window.
      EXPECT_TRUE(length < 16 || image < 0.012) << length;
      for (const double phase : {0.0, 0.7, 1.9, 2.6}) {
        const double level = level_at(window, length, static_cast<double>(length) / 4.0, phase);
        EXPECT_LE(level, 20.0 * std::log10(1.0 + image) + 0.001) << length << " " << static_cast<int>(window);
        EXPECT_GE(level, 20.0 * std::log10(1.0 - image) - 0.001) << length << " " << static_cast<int>(window);
        EXPECT_NEAR(level, 0.0, length < 32 ? 4.0 : 0.1);
      }
    }
}

TEST(StereoSpectrum, EveryBinIsCorrected) {
  for (const FftWindow window : kWindows)
    for (double bin = 6.0; bin <= 58.0; bin += 4.0) EXPECT_NEAR(level_at(window, 128, bin), 0.0, 0.1) << bin;
}

TEST(StereoSpectrum, LosesTheWindowsShareBetweenTwoBins) {
  // Harris 1978, table I: the scallop loss; that of the bell cut at 2.5 deviations by numeric integration.
  const std::array<double, 7> losses{3.92, 1.75, 1.42, 1.10, 1.58, 2.22, 0.90};
  for (std::size_t i = 0; i < losses.size(); ++i)
    EXPECT_NEAR(level_at(kWindows[i], 1024, 200.5), -losses[i], 0.06) << i;
}

TEST(StereoSpectrum, KeepsTheSidesApart) {
  constexpr std::size_t kLength = 512;
  const Sound left = sine(kLength, 40.0 * kHeardRate / kLength);
  const Sound right = sine(kLength, 90.0 * kHeardRate / kLength, 0.1, 1.0);
  Sound sound(kLength);
  for (std::size_t i = 0; i < kLength; ++i) sound[i] = {left[i].left, right[i].right};
  HeardSound heard(kLength);
  heard.feed(sound);
  StereoSpectrum spectrum;
  spectrum.prepare(kLength, FftWindow::Blackman);
  spectrum.analyse(heard);
  EXPECT_NEAR(db(spectrum.power(0)[40]), 0.0, 0.01);
  EXPECT_NEAR(db(spectrum.power(1)[90]), -20.0, 0.01);
  EXPECT_LT(db(spectrum.power(1)[40]), -110.0);
  EXPECT_LT(db(spectrum.power(0)[90]), -110.0);
}

TEST(StereoSpectrum, ConstantStandsInBinZero) {
  HeardSound heard(64);
  heard.feed(both(64, [](double) { return 0.5; }));
  StereoSpectrum spectrum;
  spectrum.prepare(64, FftWindow::Hanning);
  spectrum.analyse(heard);
  EXPECT_NEAR(db(spectrum.power(0)[0]), -6.02, 0.01);
}

}  // namespace
}  // namespace tandem

#include "displays/spectrum/spectrum_settings.h"

#include <gtest/gtest.h>

#include <limits>

#include "displays/spectrum/spectrum_analyser.h"

namespace tandem {
namespace {

using enum SpectrumSetting;

TEST(SpectrumSettings, StartWithTheDesignValues) {
  const SpectrumAnalyser analyser;
  EXPECT_FALSE(analyser.Enabled());
  EXPECT_FALSE(analyser.Visible());
  const std::pair<SpectrumSetting, int> design[] = {{Kind, 3},
                                                    {Window, 3},
                                                    {Gain, 2},
                                                    {DecayMode, 1},
                                                    {Decay, 8},
                                                    {FFTLength, 64},
                                                    {LogAmp, 1},
                                                    {VerticalScale, 40},
                                                    {PeakSpeed, 20},
                                                    {HorizontalScale, 1},
                                                    {DrawGrid, 0},
                                                    {DrawPeaks, 0},
                                                    {SolidBars, 0},
                                                    {SolidMarks, 0},
                                                    {DrawMode, 1},
                                                    {DrawInactive, 1},
                                                    {PeakCount, 1},
                                                    {PeakDelay, 18},
                                                    {ReferenceFrequency, 1000}};
  for (const auto& [setting, value] : design) EXPECT_EQ(analyser.get(setting), value) << static_cast<int>(setting);
}

TEST(SpectrumSettings, FftLengthTakesTheNearestLowerPowerOfTwo) {
  SpectrumAnalyser analyser;
  const std::pair<int, int> takes[] = {{128, 128},   {100, 64}, {2047, 1024}, {4096, 4096}, {8192, 4096},
                                       {5000, 4096}, {8, 8},    {7, 4},       {4, 4},       {3, 4},
                                       {2, 4},       {0, 4},    {-64, 4},     {4095, 2048}};
  for (const auto& [put, taken] : takes) {
    analyser.put(FFTLength, put);
    EXPECT_EQ(analyser.get(FFTLength), taken) << put;
  }
}

TEST(SpectrumSettings, OthersAreKeptWithinTheirBounds) {
  constexpr int kMost = std::numeric_limits<std::int32_t>::max();
  SpectrumAnalyser analyser;
  const std::tuple<SpectrumSetting, int, int> bounds[] = {{HorizontalScale, 1, 16},
                                                          {VerticalScale, 1, 200},
                                                          {Kind, 0, 5},
                                                          {Window, 0, 6},
                                                          {Gain, 0, 3},
                                                          {DecayMode, 0, 3},
                                                          {Decay, 1, 16},
                                                          {PeakCount, 0, 5},
                                                          {PeakDelay, 0, 50},
                                                          {PeakSpeed, 0, 50},
                                                          {ReferenceFrequency, 50, 22050},
                                                          {LogAmp, 0, 1},
                                                          {DrawMode, 1, 2}};
  for (const auto& [setting, least, greatest] : bounds) {
    analyser.put(setting, kMost);
    EXPECT_EQ(analyser.get(setting), greatest) << static_cast<int>(setting);
    analyser.put(setting, setting == LogAmp ? 0 : -kMost);
    EXPECT_EQ(analyser.get(setting), least) << static_cast<int>(setting);
  }
}

TEST(SpectrumSettings, EveryValueBetweenIsTakenAsItIs) {
  SpectrumAnalyser analyser;
  for (int value = 1; value <= 200; ++value) {
    analyser.put(VerticalScale, value);
    EXPECT_EQ(analyser.get(VerticalScale), value);
  }
}

TEST(SpectrumSettings, AnyNumberButZeroSetsAFlag) {
  SpectrumAnalyser analyser;
  for (const SpectrumSetting flag : {LogAmp, DrawGrid, DrawInactive, DrawPeaks, SolidBars, SolidMarks}) {
    analyser.put(flag, -1);
    EXPECT_EQ(analyser.get(flag), 1);
    analyser.put(flag, 0);
    EXPECT_EQ(analyser.get(flag), 0);
  }
}

}  // namespace
}  // namespace tandem

#include "displays/spectrum/spectrum_analyser.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "displays/tones.h"

namespace tandem {
namespace {

using enum SpectrumSetting;

constexpr double kPicture = 1.0 / 60.0;

// The height of the whole scale is 60 dB and nothing is added.
void start(SpectrumAnalyser& analyser) {
  analyser.put_Enabled(true);
  analyser.put(Gain, 0);
  analyser.put(DecayMode, 3);
}

double highest(const SpectrumAnalyser& analyser) {
  const auto& heights = analyser.picture().heights[0];
  return *std::max_element(heights.begin(), heights.end());
}

std::size_t column(const SpectrumAnalyser& analyser, std::size_t side = 0) {
  const auto& heights = analyser.picture().heights[side];
  return static_cast<std::size_t>(std::max_element(heights.begin(), heights.end()) - heights.begin());
}

double bin_hz(int length, int bin) { return bin * kHeardRate / length; }

TEST(SpectrumAnalyser, FullScaleSineStandsAtTheTopForEveryWindowAndLength) {
  for (int window = 0; window < 7; ++window)
    for (int length = 32; length <= 4096; length *= 2) {
      SpectrumAnalyser analyser;
      start(analyser);
      analyser.put(Window, window);
      analyser.put(FFTLength, length);
      // 6 dB below full scale, so that too high would show as well; 60 dB are the full height.
      const Sound tone = sine(4096, bin_hz(length, length / 4), amplitude_of(-6.0));
      analyser.feed(tone);
      analyser.advance(kPicture);
      EXPECT_NEAR(highest(analyser), 0.9, 0.1 / 60.0) << window << " " << length;
    }
}

TEST(SpectrumAnalyser, GainSwitchAndScales) {
  const Sound tone = sine(735, bin_hz(64, 10), amplitude_of(-20.0));
  for (int gain = 0; gain < 4; ++gain) {
    SpectrumAnalyser analyser;
    start(analyser);
    analyser.feed(tone);
    analyser.put(Gain, gain);
    analyser.advance(kPicture);
    EXPECT_NEAR(highest(analyser), 1.0 + (-20.0 + 3.0 * gain) / 60.0, 0.002);
    analyser.put(LogAmp, 0);
    for (int i = 0; i < 4; ++i) analyser.advance(1.0);  // held back by now, so it's fallen
    analyser.feed(tone);
    analyser.advance(kPicture);
    EXPECT_NEAR(highest(analyser), 0.1 * amplitude_of(3.0 * gain), 0.002);
  }
}

TEST(SpectrumAnalyser, DesignPictureHas32ColumnsOfFivePixels) {
  const SpectrumAnalyser analyser;
  EXPECT_EQ(analyser.picture().columns.columns, 32);
  EXPECT_EQ(analyser.picture().columns.pitch, 5);
  EXPECT_EQ(analyser.picture().heights[0].size(), 32U);
  EXPECT_EQ(analyser.picture().kind, AnalyserKind::Bar);
}

TEST(SpectrumAnalyser, EachSideShowsItsOwnChannelInTheRightColumn) {
  SpectrumAnalyser analyser;
  start(analyser);
  Sound tone = sine(735, bin_hz(64, 9));
  const Sound other = sine(735, bin_hz(64, 21));
  for (std::size_t i = 0; i < tone.size(); ++i) tone[i].right = other[i].right;
  analyser.feed(tone);
  analyser.advance(kPicture);
  EXPECT_EQ(column(analyser, 0), 9U);
  EXPECT_EQ(column(analyser, 1), 21U);
  EXPECT_EQ(analyser.picture().heights[0][21], 0.0F);
  EXPECT_EQ(analyser.picture().heights[1][9], 0.0F);
}

TEST(SpectrumAnalyser, HorizontalScaleLooksAtAPartAboutTheReference) {
  SpectrumAnalyser analyser;
  start(analyser);
  analyser.put(FFTLength, 4096);
  analyser.put(HorizontalScale, 4);
  analyser.put(ReferenceFrequency, 10000);
  EXPECT_DOUBLE_EQ(analyser.picture().reference, 0.5);
  analyser.feed(sine(4096, 10030.0));
  analyser.advance(kPicture);
  const int columns = analyser.picture().columns.columns;
  EXPECT_EQ(columns, 80);
  EXPECT_EQ(column(analyser), static_cast<std::size_t>(columns / 2));
  analyser.put(ReferenceFrequency, 50);
  EXPECT_NEAR(analyser.picture().reference, 50.0 * 4 / 22050, 1e-9);
  EXPECT_DOUBLE_EQ(analyser.picture().range.low_hz, 0.0);
  analyser.feed(sine(735, 1000.0));
  analyser.feed(sine(4096, 1000.0));
  analyser.advance(kPicture);
  EXPECT_EQ(column(analyser), static_cast<std::size_t>(1000.0 * 4 / 22050 * columns));
}

TEST(SpectrumAnalyser, BarsFallAtTheirSpeedAtAnyRate) {
  for (const double rate : {30.0, 60.0, 144.0}) {
    SpectrumAnalyser analyser;
    start(analyser);
    Sound tone = sine(frames_in(0.5), bin_hz(64, 8));
    tone.resize(frames_in(2.0));
    Screen screen(analyser, tone);
    screen.run(0.5, rate);
    EXPECT_NEAR(highest(analyser), 1.0, 0.002);
    screen.run(1.0, rate);
    // The last sound may still have been in the first picture of the fall.
    EXPECT_NEAR(highest(analyser), 0.52, 0.96 / rate + 0.002) << rate;
    const double before = highest(analyser);
    screen.run(1.25, rate);
    EXPECT_NEAR(before - highest(analyser), 0.24, 0.005) << rate;
  }
}

TEST(SpectrumAnalyser, PeakMarksStandAboveTheBars) {
  SpectrumAnalyser analyser;
  start(analyser);
  analyser.put(DrawPeaks, 1);
  analyser.put(PeakCount, 2);
  ASSERT_EQ(analyser.picture().peaks[0].size(), 64U);
  Sound tone = sine(frames_in(0.25), bin_hz(64, 8));
  tone.resize(frames_in(3.0));
  Screen screen(analyser, tone);
  screen.run(0.5);
  EXPECT_NEAR(analyser.picture().peaks[0][8], 1.0, 0.002) << "held for 0.36 s";
  EXPECT_LT(highest(analyser), 0.8);
  screen.run(1.0);
  EXPECT_NEAR(analyser.picture().peaks[0][8], 1.0 - 0.6 * (1.0 - 0.25 - 0.36), 0.6 * kPicture + 0.002);
  screen.run(3.0);
  EXPECT_EQ(analyser.picture().peaks[0][8], 0.0F);
  EXPECT_TRUE(analyser.at_rest());
  analyser.put(DrawPeaks, 0);
  EXPECT_TRUE(analyser.picture().peaks[0].empty());
}

TEST(SpectrumAnalyser, RollShowsFrequencyUpwardAndTimeToTheLeft) {
  SpectrumAnalyser analyser;
  start(analyser);
  analyser.put(Kind, 5);
  EXPECT_TRUE(analyser.picture().heights[0].empty());
  const RollCells& roll = analyser.picture().roll;
  ASSERT_EQ(roll.steps, 80U);
  ASSERT_EQ(roll.rows, 28U);
  Sound sound = sine(frames_in(1.0), bin_hz(64, 4));
  const Sound later = sine(frames_in(1.0), bin_hz(64, 24));
  sound.insert(sound.end(), later.begin(), later.end());
  Screen screen(analyser, sound);
  screen.run(2.0);
  const auto row = [&](std::size_t age) {
    const auto step = roll.step(0, age);
    return std::max_element(step.begin(), step.end()) - step.begin();
  };
  EXPECT_EQ(row(5), 24 * 28 / 32);
  EXPECT_EQ(row(45), 4 * 28 / 32);
  EXPECT_NEAR(roll.step(0, 5)[21], 1.0, 0.01);
}

TEST(SpectrumAnalyser, FallsToRestInSilenceAndWhenSoundIsHeldBack) {
  for (const int kind : {3, 5})
    for (const int mode : {0, 1, 2, 3})
      for (const bool held_back : {false, true}) {
        SpectrumAnalyser analyser;
        start(analyser);
        analyser.put(Kind, kind);
        analyser.put(DecayMode, mode);
        analyser.put(DrawPeaks, 1);
        Sound tone = sine(frames_in(0.5), 1000.0);
        if (!held_back) tone.resize(frames_in(12.0));
        Screen screen(analyser, tone);
        screen.run(0.5);
        EXPECT_FALSE(analyser.at_rest());
        screen.run(10.0);
        EXPECT_TRUE(analyser.at_rest()) << kind << " " << mode << " " << held_back;
        EXPECT_FALSE(screen.picture(kPicture));
        const auto& cells = analyser.picture().roll.cells[0];
        EXPECT_TRUE(std::all_of(cells.begin(), cells.end(), [](float height) { return height == 0.0F; }));
        EXPECT_TRUE(kind == 5 || highest(analyser) == 0.0);
      }
}

TEST(SpectrumAnalyser, WakesUpFromRest) {
  SpectrumAnalyser analyser;
  start(analyser);
  analyser.advance(kPicture);
  EXPECT_TRUE(analyser.at_rest());
  analyser.feed(sine(735, 5000.0));
  EXPECT_FALSE(analyser.at_rest());
  EXPECT_TRUE(analyser.advance(kPicture));
}

TEST(SpectrumAnalyser, AChangedSettingIsShownEvenAtRest) {
  SpectrumAnalyser analyser;
  start(analyser);
  EXPECT_TRUE(analyser.advance(kPicture));
  EXPECT_FALSE(analyser.advance(kPicture));
  analyser.put(DrawGrid, 1);
  EXPECT_FALSE(analyser.at_rest());
  EXPECT_TRUE(analyser.advance(kPicture));
  EXPECT_TRUE(analyser.picture().grid);
  analyser.put(DrawGrid, 1);
  EXPECT_FALSE(analyser.advance(kPicture));
}

TEST(SpectrumAnalyser, ASettingThatOnlyShapesTheFallKeepsTheBars) {
  SpectrumAnalyser analyser;
  start(analyser);
  const Sound tone = sine(735, bin_hz(64, 8));
  analyser.feed(tone);
  analyser.advance(kPicture);
  analyser.put(PeakDelay, 3);
  analyser.put(Decay, 1);
  EXPECT_NEAR(highest(analyser), 1.0, 0.002);
}

TEST(SpectrumAnalyser, DisabledItDoesNothing) {
  SpectrumAnalyser analyser;
  analyser.feed(sine(735, 1000.0));
  EXPECT_FALSE(analyser.advance(kPicture));
  EXPECT_TRUE(analyser.at_rest());
  analyser.put_Enabled(true);
  analyser.advance(kPicture);
  EXPECT_EQ(analyser.picture().heights[0][1], 0.0F) << "what it was fed with before doesn't count";
  analyser.feed(sine(735, 1000.0));
  analyser.advance(kPicture);
  EXPECT_GT(analyser.picture().heights[0][1], 0.9F);
  analyser.put_Enabled(false);
  EXPECT_EQ(analyser.picture().heights[0][1], 0.0F);
}

TEST(SpectrumAnalyser, FitsAnyWidth) {
  SpectrumAnalyser analyser;
  start(analyser);
  for (const int half : {1, 2, 97, 160, 200, 320, 640})
    for (int length = 4; length <= 4096; length *= 2)
      for (const int kind : {3, 5}) {
        analyser.put(FFTLength, length);
        analyser.put(Kind, kind);
        analyser.fit(half, half / 160.0);
        analyser.feed(sine(735, 1000.0));
        analyser.advance(kPicture);
        EXPECT_LE(analyser.picture().columns.columns * analyser.picture().columns.pitch, std::max(half, 2));
      }
}

}  // namespace
}  // namespace tandem

#include "displays/spectrum/spectrum_analyser.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "displays/rest.h"

namespace tandem {
namespace {

using enum SpectrumSetting;

constexpr double kPicture = 1.0 / 60.0;

// A lone tone stands near the top, since the slow level lifts it.
void start(SpectrumAnalyser& analyser) {
  analyser.put_Enabled(true);
  analyser.put(Gain, 0);
  analyser.put(DecayMode, 3);
}

double highest(const SpectrumAnalyser& analyser, std::size_t side = 0) {
  const auto& heights = analyser.picture().heights[side];
  return *std::max_element(heights.begin(), heights.end());
}

std::size_t column(const SpectrumAnalyser& analyser, std::size_t side = 0) {
  const auto& heights = analyser.picture().heights[side];
  return static_cast<std::size_t>(std::max_element(heights.begin(), heights.end()) - heights.begin());
}

std::size_t column_of(const SpectrumAnalyser& analyser, double hz) {
  const SpectrumReading& picture = analyser.picture();
  return static_cast<std::size_t>(picture.axis.position(hz) * picture.grid.columns);
}

void show(SpectrumAnalyser& analyser, const Sound& sound) { Screen(analyser, sound).run(1.0); }

// The height of a column after a second of a sound with these settings.
double height_of(double hz, const Sound& sound, std::initializer_list<std::pair<SpectrumSetting, int>> settings) {
  SpectrumAnalyser analyser;
  start(analyser);
  for (const auto& [setting, value] : settings) analyser.put(setting, value);
  show(analyser, sound);
  return analyser.picture().heights[0][column_of(analyser, hz)];
}

Sound tones(double low_db, double high_db) {
  Sound sound = sine(frames_in(1.0), 100.0, amplitude_of(low_db));
  const Sound high = sine(frames_in(1.0), 8000.0, amplitude_of(high_db));
  for (std::size_t i = 0; i < sound.size(); ++i) {
    sound[i].left += high[i].left;
    sound[i].right += high[i].right;
  }
  return sound;
}

TEST(SpectrumAnalyser, ATonesHeightIsWhatItsSettingsSay) {
  // So quiet that the slow level stands still.
  const Sound tone = sine(frames_in(1.0), 1000.0, amplitude_of(-50.0));
  EXPECT_NEAR(height_of(1000.0, tone, {{VerticalScale, 1}}), 1.0 + (-50.0 + 12.0) / 120.0, 0.01);
  EXPECT_NEAR(height_of(1000.0, tone, {{LogAmp, 0}, {VerticalScale, 100}}), std::pow(amplitude_of(-30.0), 0.6), 0.01);
}

TEST(SpectrumAnalyser, EveryStepOfTheVerticalScaleShows) {
  const Sound sound = tones(-20.0, -50.0);
  for (const int logarithmic : {0, 1}) {
    double before = logarithmic == 0 ? -1.0 : 2.0;
    for (const int scale : {1, 2, 5, 10, 20, 40, 100, 200}) {
      const double height = height_of(8000.0, sound, {{LogAmp, logarithmic}, {VerticalScale, scale}});
      const double risen = logarithmic == 0 ? height - before : before - height;
      EXPECT_TRUE(risen > 0.003 || height == 0.0) << scale << " " << logarithmic;
      before = height;
    }
  }
}

TEST(SpectrumAnalyser, GainTiltsAboutTheReferenceFrequency) {
  const Sound sound = tones(-70.0, -70.0);
  double before = -1.0;
  for (int gain = 0; gain < 4; ++gain) {
    const auto of = [&](double hz) { return height_of(hz, sound, {{Gain, gain}, {VerticalScale, 1}}); };
    const double tilt = of(8000.0) - of(100.0);
    // 3 dB an octave over 6.3 octaves of a range of 120 dB.
    EXPECT_NEAR(tilt, 3.0 * gain * std::log2(80.0) / 120.0, 0.04) << gain;
    EXPECT_GT(tilt, before);
    before = tilt;
  }
}

TEST(SpectrumAnalyser, ALouderSongLooksLouderButAQuietOneFillsTheGlassToo) {
  const auto shown = [](double db) { return height_of(1000.0, sine(frames_in(1.0), 1000.0, amplitude_of(db)), {}); };
  EXPECT_GT(shown(-10.0), shown(-30.0));
  EXPECT_GT(shown(-30.0), 0.5);
}

TEST(SpectrumAnalyser, DesignPictureHas33ColumnsOfFivePixels) {
  const SpectrumAnalyser analyser;
  EXPECT_EQ(analyser.picture().grid.columns, 33);
  EXPECT_EQ(analyser.picture().grid.pitch, 5);
  EXPECT_EQ(analyser.picture().heights[0].size(), 33U);
  EXPECT_EQ(analyser.picture().kind, AnalyserKind::Bar);
}

TEST(SpectrumAnalyser, EachSideShowsItsOwnChannelInTheRightColumn) {
  SpectrumAnalyser analyser;
  start(analyser);
  Sound tone = sine(frames_in(1.0), 300.0);
  const Sound other = sine(frames_in(1.0), 5000.0);
  for (std::size_t i = 0; i < tone.size(); ++i) tone[i].right = other[i].right;
  show(analyser, tone);
  EXPECT_EQ(column(analyser, 0), column_of(analyser, 300.0));
  EXPECT_EQ(column(analyser, 1), column_of(analyser, 5000.0));
  EXPECT_EQ(analyser.picture().heights[0][column_of(analyser, 5000.0)], 0.0F);
  EXPECT_EQ(analyser.picture().heights[1][column_of(analyser, 300.0)], 0.0F);
}

TEST(SpectrumAnalyser, HorizontalScaleLooksAtAPartAboutTheReference) {
  for (const int reference : {1000, 50, 10000}) {
    SpectrumAnalyser analyser;
    start(analyser);
    analyser.put(HorizontalScale, 4);
    analyser.put(ReferenceFrequency, reference);
    EXPECT_EQ(analyser.picture().axis, shown_axis(4, reference));
    const double hz = analyser.picture().axis.hz(0.3);
    show(analyser, sine(frames_in(1.0), hz));
    EXPECT_NEAR(static_cast<double>(column(analyser)), static_cast<double>(column_of(analyser, hz)), 1.0) << reference;
  }
}

TEST(SpectrumAnalyser, EveryKindOfSoundRestsAtTheBottomWhereThereIsNone) {
  SpectrumAnalyser analyser;
  start(analyser);
  show(analyser, sine(frames_in(1.0), 1000.0));
  const auto& heights = analyser.picture().heights[0];
  for (const double hz : {60.0, 200.0, 4000.0, 15000.0}) EXPECT_EQ(heights[column_of(analyser, hz)], 0.0F) << hz;
}

TEST(SpectrumAnalyser, BarsFallAtTheirSpeedAtAnyRate) {
  for (const double rate : {30.0, 60.0, 144.0}) {
    SpectrumAnalyser analyser;
    start(analyser);
    Sound tone = sine(frames_in(0.5), 8000.0);
    tone.resize(frames_in(2.0));
    Screen screen(analyser, tone);
    screen.run(0.6, rate);  // the last window has passed
    const double first = highest(analyser);
    screen.run(0.85, rate);
    EXPECT_NEAR(first - highest(analyser), 0.24, 0.005) << rate;
    screen.run(1.1, rate);
    EXPECT_NEAR(first - highest(analyser), 0.48, 0.005) << rate;
  }
}

TEST(SpectrumAnalyser, PeakMarksStandAboveTheBars) {
  SpectrumAnalyser analyser;
  start(analyser);
  analyser.put(DrawPeaks, 1);
  analyser.put(PeakCount, 2);
  ASSERT_EQ(analyser.picture().peaks[0].size(), 66U);
  analyser.put(VerticalScale, 1);
  Sound tone = sine(frames_in(0.25), 8000.0, amplitude_of(-50.0));  // too quiet for the slow level
  tone.resize(frames_in(3.0));
  Screen screen(analyser, tone);
  screen.run(0.25);
  const std::size_t lit = column_of(analyser, 8000.0);
  const double top = analyser.picture().peaks[0][lit];
  EXPECT_GT(top, 0.6);
  screen.run(0.5);
  EXPECT_NEAR(analyser.picture().peaks[0][lit], top, 0.03) << "held for 0.36 s";
  EXPECT_LT(highest(analyser), top - 0.1);
  screen.run(1.0);
  EXPECT_NEAR(analyser.picture().peaks[0][lit], top - 0.6 * (1.0 - 0.25 - 0.36), 0.05);
  screen.run(3.0);
  EXPECT_EQ(analyser.picture().peaks[0][lit], 0.0F);
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
  ASSERT_EQ(roll.steps, 82U);
  ASSERT_EQ(roll.rows, 28U);
  Sound sound = sine(frames_in(2.0), 200.0);
  const Sound later = sine(frames_in(2.0), 6000.0);
  sound.insert(sound.end(), later.begin(), later.end());
  Screen screen(analyser, sound);
  screen.run(4.0);
  const auto row = [&](std::size_t age) {
    const auto step = roll.step(0, age);
    return std::max_element(step.begin(), step.end()) - step.begin();
  };
  const FrequencyAxis axis;
  EXPECT_EQ(row(5), static_cast<int>(axis.position(6000.0) * 28));
  EXPECT_EQ(row(45), static_cast<int>(axis.position(200.0) * 28)) << "15 steps a second";
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
        SCOPED_TRACE(testing::Message() << kind << " " << mode << " " << held_back);
        expect_rest_after(analyser, tone, 0.5, 10.0);
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
  analyser.feed(sine(1024, 5000.0));
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
  EXPECT_TRUE(analyser.picture().grid_lines);
  analyser.put(DrawGrid, 1);
  EXPECT_FALSE(analyser.advance(kPicture));
}

TEST(SpectrumAnalyser, ASettingThatOnlyShapesTheFallKeepsTheBars) {
  SpectrumAnalyser analyser;
  start(analyser);
  show(analyser, sine(frames_in(1.0), 1000.0));
  const double before = highest(analyser);
  analyser.put(PeakDelay, 3);
  analyser.put(Decay, 1);
  EXPECT_EQ(highest(analyser), before);
}

TEST(SpectrumAnalyser, DisabledItDoesNothing) {
  SpectrumAnalyser analyser;
  const Sound tone = sine(2048, 1000.0);
  analyser.feed(tone);
  EXPECT_FALSE(analyser.advance(kPicture));
  EXPECT_TRUE(analyser.at_rest());
  analyser.put_Enabled(true);
  analyser.advance(kPicture);
  EXPECT_EQ(highest(analyser), 0.0) << "what it was fed with before doesn't count";
  analyser.feed(tone);
  analyser.advance(kPicture);
  EXPECT_GT(highest(analyser), 0.5);
  analyser.put_Enabled(false);
  EXPECT_EQ(highest(analyser), 0.0);
}

TEST(SpectrumAnalyser, FitsAnyScaleAndLength) {
  SpectrumAnalyser analyser;
  start(analyser);
  for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0})
    for (int length = 4; length <= 4096; length *= 2)
      for (const int kind : {3, 5}) {
        analyser.put(FFTLength, length);
        analyser.put(Kind, kind);
        analyser.fit(scale);
        analyser.feed(sine(1024, 1000.0));
        analyser.advance(kPicture);
        EXPECT_EQ(analyser.picture().grid, spectrum_grid(length, scale));
      }
}

}  // namespace
}  // namespace tandem

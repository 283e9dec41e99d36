#include "displays/spectrum/spectrum_columns.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "displays/spectrum/spectrum_heights.h"
#include "displays/tones.h"

namespace tandem {
namespace {

TEST(SpectrumColumns, ThirtyTwoBinsHaveOneColumnEachAtEveryScale) {
  for (const double scale : {1.0, 1.1, 1.2, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0}) {
    const ColumnFit fit = fit_columns(static_cast<int>(160 * scale), 32, static_cast<int>(2 * scale));
    EXPECT_EQ(fit.columns, 32) << scale;
    EXPECT_EQ(fit.pitch, static_cast<int>(5 * scale)) << scale;
  }
}

TEST(SpectrumColumns, OtherLengthsFillTheHalf) {
  for (const int scale : {1, 2, 3})
    for (int bins = 2; bins <= 2048; bins *= 2) {
      const ColumnFit fit = fit_columns(160 * scale, bins, 2 * scale);
      EXPECT_LE(fit.columns, bins);
      EXPECT_GE(fit.pitch, 2 * scale);
      EXPECT_LE(fit.columns * fit.pitch, 160 * scale);
      EXPECT_GE(fit.columns * fit.pitch * 6, 160 * scale * 5) << bins;
    }
  EXPECT_EQ(fit_columns(160, 256, 2).columns, 80);
  EXPECT_EQ(fit_columns(160, 64, 2).pitch, 3);
  EXPECT_EQ(fit_columns(1, 2048, 2).columns, 1);
}

TEST(SpectrumColumns, RangeLiesAboutTheReferenceAndWithinTheBounds) {
  EXPECT_DOUBLE_EQ(shown_range(1, 500).low_hz, 0.0);
  EXPECT_DOUBLE_EQ(shown_range(1, 500).high_hz, 22050.0);
  const FrequencyRange middle = shown_range(4, 10000);
  EXPECT_DOUBLE_EQ(middle.low_hz, 10000.0 - 22050.0 / 8);
  EXPECT_DOUBLE_EQ(middle.high_hz, 10000.0 + 22050.0 / 8);
  EXPECT_DOUBLE_EQ(middle.position(10000.0), 0.5);
  EXPECT_DOUBLE_EQ(shown_range(4, 50).low_hz, 0.0);
  EXPECT_DOUBLE_EQ(shown_range(4, 50).high_hz, 22050.0 / 4);
  EXPECT_DOUBLE_EQ(shown_range(16, 22050).high_hz, 22050.0);
  EXPECT_DOUBLE_EQ(shown_range(16, 22050).low_hz, 22050.0 * 15 / 16);
}

std::vector<float> greatest(FrequencyRange range, std::size_t bands, const std::vector<float>& bins) {
  BandMap map;
  map.prepare(range, bands, bins.size());
  std::vector<float> out(bands);
  map.take_greatest(bins, out);
  return out;
}

std::vector<float> numbered(std::size_t count) {
  std::vector<float> bins(count);
  std::iota(bins.begin(), bins.end(), 0.0F);
  return bins;
}

TEST(BandMap, AsManyBandsAsBinsShowThemOneByOne) {
  EXPECT_EQ(greatest({}, 32, numbered(32)), numbered(32));
  EXPECT_EQ(greatest(shown_range(2, 22050), 16, numbered(32)).front(), 16.0F);
}

TEST(BandMap, NoBinIsLostAndEachBandTakesItsGreatest) {
  for (std::size_t lit = 0; lit < 2048; lit += 7) {
    std::vector<float> bins(2048);
    bins[lit] = 1.0F;
    const std::vector<float> bands = greatest({}, 80, bins);
    EXPECT_FLOAT_EQ(std::accumulate(bands.begin(), bands.end(), 0.0F), 1.0F);
    EXPECT_EQ(bands[lit * 80 / 2048], 1.0F) << lit;
  }
}

TEST(BandMap, NarrowBandsRepeatTheBinBelow) {
  // A sixteenth of 32 bins is two bins.
  const std::vector<float> bands = greatest(shown_range(16, 50), 32, numbered(32));
  for (std::size_t i = 0; i < 32; ++i) EXPECT_EQ(bands[i], i < 16 ? 0.0F : 1.0F);
  for (const int reference : {700, 5000, 12345, 22050})
    for (const float bin : greatest(shown_range(16, reference), 80, numbered(2))) EXPECT_LE(bin, 1.0F);
}

TEST(HeightRule, LogarithmicHeightsFollowScaleAndGain) {
  const auto power = [](double db) { return static_cast<float>(std::pow(10.0, db / 10.0)); };
  for (const int scale : {1, 19, 20, 21, 40, 60, 119, 120, 121, 200})
    for (const double gain : {0.0, 3.0, 6.0, 9.0}) {
      const HeightRule rule(true, gain, scale);
      const double range = std::min(120.0, std::max(20.0, 2400.0 / scale));
      for (const double db : {0.0, -3.0, -12.0, -19.0, -30.0, -59.0, -100.0, -150.0}) {
        const double expected = std::min(1.0, std::max(0.0, 1.0 + (db + gain) / range));
        EXPECT_NEAR(rule.height(power(db)), expected, 1e-5) << scale << " " << gain << " " << db;
      }
      EXPECT_EQ(rule.height(0.0F), 0.0F);
    }
}

TEST(HeightRule, LinearHeightsFollowScaleAndGain) {
  for (const int scale : {1, 20, 40, 200})
    for (const double gain : {0.0, 3.0, 6.0, 9.0})
      for (const double a : {0.0, 0.01, 0.1, 0.5, 1.0}) {
        const double expected = std::min(1.0, a * amplitude_of(gain) * scale / 40.0);
        EXPECT_NEAR(HeightRule(false, gain, scale).height(static_cast<float>(a * a)), expected, 1e-5);
      }
}

}  // namespace
}  // namespace tandem

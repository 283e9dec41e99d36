#include "displays/spectrum/spectrum_heights.h"

#include <gtest/gtest.h>

#include <cmath>

#include "displays/spectrum/slow_level.h"

namespace tandem {
namespace {

float power(double db) { return static_cast<float>(std::pow(10.0, db / 10.0)); }

TEST(HeightLaw, LogarithmicHeightsHaveTheRangeOfTheScale) {
  const struct {
    int scale;
    double range;
  } kRanges[] = {{1, 120.0}, {20, 43.6}, {40, 34.5}, {200, 20.0}};
  for (const auto& [scale, range] : kRanges) {
    const HeightLaw law(true, scale);
    EXPECT_NEAR(law.height(power(-12.0 - range / 2.0)), 0.5, 0.005) << scale;
    EXPECT_NEAR(law.height(power(-12.0 - range * 0.9)), 0.1, 0.005) << scale;
    EXPECT_EQ(law.height(power(-13.0 - range)), 0.0F);
    EXPECT_EQ(law.height(0.0F), 0.0F);
  }
}

TEST(HeightLaw, LinearHeightsAreTheRootOfTheAmplitude) {
  for (const int scale : {1, 20, 40, 200})
    for (const double amplitude : {0.0001, 0.001, 0.01, 0.03}) {
      const double expected = std::pow(amplitude * std::sqrt(scale), 0.6);
      EXPECT_NEAR(HeightLaw(false, scale).height(static_cast<float>(amplitude * amplitude)), expected, 1e-4);
    }
}

TEST(HeightLaw, LoudBandsStillMoveNearTheTop) {
  for (const bool logarithmic : {false, true}) {
    const HeightLaw law(logarithmic, 40);
    const auto drawn = [&](double db) { return shouldered(law.height(power(db))); };
    float before = 0.0F;
    for (double db = -40.0; db <= 10.0; db += 1.0) {
      EXPECT_GE(drawn(db), before);
      EXPECT_LE(drawn(db), 1.0F);
      before = drawn(db);
    }
    EXPECT_GT(drawn(-12.0), drawn(-14.0) + 0.005F) << logarithmic;
  }
}

TEST(HeightLaw, TheShoulderLeavesTheLowerFourFifthsAsTheyAre) {
  for (const float height : {0.0F, 0.3F, 0.8F}) EXPECT_EQ(shouldered(height), height);
  EXPECT_LT(shouldered(0.9F), 0.9F);
  EXPECT_NEAR(shouldered(0.801F), 0.801F, 1e-4F) << "it begins without a kink";
}

// The level's factor in dB after a sound of a level for some seconds.
double factor_db(SlowLevel& level, double db, double seconds) {
  for (double passed = 0.0; passed < seconds; passed += 1.0 / 60.0) level.follow(std::pow(10.0, db / 10.0), 1.0 / 60.0);
  return 10.0 * std::log10(static_cast<double>(level.factor()));
}

TEST(SlowLevel, TakesOutFourFifthsOfTheDifference) {
  for (const double db : {-50.0, -36.0, -26.0, -14.0}) {
    SlowLevel level;
    EXPECT_NEAR(factor_db(level, db, 60.0), 0.8 * (-26.0 - db), 0.01) << "a louder song still looks louder";
  }
}

TEST(SlowLevel, RisesFastFallsSlowlyAndStandsStillInSilence) {
  SlowLevel level;
  EXPECT_NEAR(factor_db(level, -14.0, 0.4), -0.8 * 12.0 * (1.0 - std::exp(-1.0)), 0.2);
  factor_db(level, -14.0, 10.0);
  EXPECT_NEAR(factor_db(level, -34.0, 4.0), 0.8 * (8.0 - 20.0 * std::exp(-1.0)), 0.2);
  const double before = factor_db(level, -34.0, 0.0);
  EXPECT_EQ(factor_db(level, -70.0, 10.0), before);
  level.reset();
  EXPECT_NEAR(factor_db(level, -70.0, 1.0), 0.0, 1e-6);
}

}  // namespace
}  // namespace tandem

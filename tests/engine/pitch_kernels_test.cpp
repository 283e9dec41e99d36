#include "engine/pitch/pitch_kernels.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include "engine/pitch/interpolation_filters.h"

namespace tandem {
namespace {

std::vector<float> random_values(std::size_t count) {
  std::mt19937 random(1);
  std::uniform_real_distribution<float> value(-1.0F, 1.0F);
  std::vector<float> values(count);
  for (float& v : values) v = value(random);
  return values;
}

TEST(PitchKernels, EveryWayToAddProductsAgrees) {
  const std::vector<float> a = random_values(1000);
  const std::vector<float> b(a.rbegin(), a.rend());
  for (const std::size_t count : {0U, 1U, 3U, 15U, 16U, 220U, 882U, 997U}) {
    double exact = 0.0;
    for (std::size_t i = 0; i < count; ++i) exact += static_cast<double>(a[i]) * static_cast<double>(b[i]);
    for (const PitchKernels& way : pitch_kernels()) {
      EXPECT_NEAR(static_cast<double>(way.multiply(a.data(), b.data(), count)), exact, 1e-4) << count;
    }
  }
}

// Rounding is all that may differ: some 24 bits of sums of 72.
TEST(PitchKernels, EveryWayToInterpolateAgrees) {
  const std::vector<float> left = random_values(600);
  const std::vector<float> right(left.rbegin(), left.rend());
  std::vector<double> positions(441);
  for (std::size_t i = 0; i < positions.size(); ++i) positions[i] = 40.0 + 1.1234 * static_cast<double>(i);
  std::vector<std::vector<StereoFrame>> results;
  for (const PitchKernels& way : pitch_kernels()) {
    results.emplace_back(positions.size());
    way.read(pitch_filters().rows(3), left.data(), right.data(), positions, results.back().data());
  }
  for (std::size_t i = 0; i < positions.size(); ++i) {
    for (const auto& result : results) {
      ASSERT_NEAR(result[i].left, results.front()[i].left, 2e-6F);
      ASSERT_NEAR(result[i].right, results.front()[i].right, 2e-6F);
    }
  }
}

// A tone read between its frames is the tone there; -100 dB is what the filters promise.
TEST(PitchKernels, ATonesValueBetweenItsFramesIsFound) {
  const auto tone = [](double at) { return std::sin(2.0 * std::numbers::pi * 5000.0 / kSampleRate * at); };
  std::vector<float> sound(600);
  for (std::size_t i = 0; i < sound.size(); ++i) sound[i] = static_cast<float>(tone(static_cast<double>(i)));
  std::vector<double> positions(400);
  for (std::size_t i = 0; i < positions.size(); ++i) positions[i] = 40.0 + 1.26 * static_cast<double>(i);
  std::vector<StereoFrame> out(positions.size());
  for (std::size_t bank = 0; bank < PitchFilters::kBanks; ++bank) {
    interpolate(pitch_filters().rows(bank), sound.data(), sound.data(), positions, out.data());
    for (std::size_t i = 0; i < out.size(); ++i)
      ASSERT_NEAR(static_cast<double>(out[i].left), tone(positions[i]), 1e-5);
  }
}

TEST(PitchFilters, EachRatioHasABankThatReachesIt) {
  EXPECT_EQ(PitchFilters::bank_for(0.8), 0U);
  EXPECT_EQ(PitchFilters::bank_for(1.0), 0U);
  EXPECT_EQ(PitchFilters::bank_for(1.001), 1U);
  EXPECT_EQ(PitchFilters::bank_for(std::exp2(1.0 / 12.0)), 2U);
  EXPECT_EQ(PitchFilters::bank_for(std::exp2(4.0 / 12.0)), 8U);
}

}  // namespace
}  // namespace tandem

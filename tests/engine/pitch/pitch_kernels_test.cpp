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

TEST(PitchKernels, ProductsAreAddedUpForEveryCount) {
  const std::vector<float> a = random_values(1000);
  const std::vector<float> b(a.rbegin(), a.rend());
  for (const std::size_t count : {0U, 1U, 3U, 15U, 16U, 220U, 882U, 997U}) {
    double exact = 0.0;
    for (std::size_t i = 0; i < count; ++i) exact += static_cast<double>(a[i]) * static_cast<double>(b[i]);
    EXPECT_NEAR(static_cast<double>(dot_product(a.data(), b.data(), count)), exact, 1e-4) << count;
  }
}

// One frame the long way: every tap from its two rows.
double interpolated(const float* bank, const float* sound, double position) {
  const double whole = std::floor(position);
  const double phase = (position - whole) * static_cast<double>(kKernelPhases);
  const auto row = static_cast<std::size_t>(phase);
  const double part = phase - std::floor(phase);
  const float* taps = bank + row * kKernelTaps;
  double sum = 0.0;
  for (std::size_t i = 0; i < kKernelTaps; ++i) {
    const double tap = static_cast<double>(taps[i]) * (1.0 - part) + static_cast<double>(taps[kKernelTaps + i]) * part;
    sum += tap * static_cast<double>(sound[static_cast<std::size_t>(whole) + i - kKernelBefore]);
  }
  return sum;
}

// Rounding is all that may differ: some 24 bits of sums of 72.
TEST(PitchKernels, EveryFrameIsTheSumOfItsTaps) {
  const std::vector<float> left = random_values(600);
  const std::vector<float> right(left.rbegin(), left.rend());
  std::vector<double> positions(441);
  for (std::size_t i = 0; i < positions.size(); ++i) positions[i] = 40.0 + 1.1234 * static_cast<double>(i);
  std::vector<StereoFrame> out(positions.size());
  const float* bank = interpolation_filters().rows(4);
  interpolate(bank, left.data(), right.data(), positions, out.data());
  for (std::size_t i = 0; i < out.size(); ++i) {
    ASSERT_NEAR(static_cast<double>(out[i].left), interpolated(bank, left.data(), positions[i]), 2e-6);
    ASSERT_NEAR(static_cast<double>(out[i].right), interpolated(bank, right.data(), positions[i]), 2e-6);
  }
}

// A tone read between its frames is the tone there: -100 dB is what the filters promise, -75 dB the one for far down.
TEST(PitchKernels, ATonesValueBetweenItsFramesIsFound) {
  const auto tone = [](double at) { return std::sin(2.0 * std::numbers::pi * 5000.0 / kSampleRate * at); };
  std::vector<float> sound(600);
  for (std::size_t i = 0; i < sound.size(); ++i) sound[i] = static_cast<float>(tone(static_cast<double>(i)));
  std::vector<double> positions(400);
  for (std::size_t i = 0; i < positions.size(); ++i) positions[i] = 40.0 + 1.26 * static_cast<double>(i);
  std::vector<StereoFrame> out(positions.size());
  for (std::size_t bank = 0; bank < InterpolationFilters::kBanks; ++bank) {
    interpolate(interpolation_filters().rows(bank), sound.data(), sound.data(), positions, out.data());
    for (std::size_t i = 0; i < out.size(); ++i)
      ASSERT_NEAR(static_cast<double>(out[i].left), tone(positions[i]), bank == 0 ? 2e-4 : 1e-5) << bank;
  }
}

TEST(InterpolationFilters, EachRatioHasABankThatReachesIt) {
  EXPECT_EQ(InterpolationFilters::bank_for(0.8), 0U);
  EXPECT_EQ(InterpolationFilters::bank_for(0.906), 0U);
  EXPECT_EQ(InterpolationFilters::bank_for(0.908), 1U);
  EXPECT_EQ(InterpolationFilters::bank_for(1.0), 1U);
  EXPECT_EQ(InterpolationFilters::bank_for(1.001), 2U);
  EXPECT_EQ(InterpolationFilters::bank_for(std::exp2(1.0 / 12.0)), 3U);
  EXPECT_EQ(InterpolationFilters::bank_for(std::exp2(4.0 / 12.0)), 9U);
}

}  // namespace
}  // namespace tandem

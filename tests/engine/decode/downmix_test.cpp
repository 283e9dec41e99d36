#include "engine/decode/downmix.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tandem {
namespace {

constexpr std::uint32_t kFiveAndLow = 0x3F;
constexpr std::uint32_t kSevenAndLow = 0x63F;

// One frame with these channels.
StereoFrame mix(const std::vector<float>& channels, std::uint32_t mask) {
  StereoFrame out;
  Downmix(static_cast<int>(channels.size()), mask).process(channels, std::span(&out, 1));
  return out;
}

double decibels(float gain) { return 20.0 * std::log10(static_cast<double>(gain)); }

TEST(Downmix, LeavesMonoAndStereoAsTheyAre) {
  EXPECT_EQ(mix({0.75F}, 0x4), (StereoFrame{0.75F, 0.75F}));
  EXPECT_EQ(mix({0.75F, -0.5F}, 0x3), (StereoFrame{0.75F, -0.5F}));
  EXPECT_EQ(mix({1.0F, 1.0F}, 0x600), (StereoFrame{1.0F, 1.0F}));
}

TEST(Downmix, KeepsFullScaleOnAllChannelsWithinFullScale) {
  EXPECT_NEAR(mix({1, 1, 1, 0, 1, 1}, kFiveAndLow).left, 1.0, 1e-6);
  EXPECT_NEAR(mix({1, 1, 1, 0, 1, 1, 1, 1}, kSevenAndLow).left, 1.0, 1e-6);
  EXPECT_NEAR(mix({-1, -1, -1, 0, -1, -1, -1, -1}, kSevenAndLow).right, -1.0, 1e-6);
  for (int count = 3; count <= 8; ++count) {
    std::vector<float> all(static_cast<std::size_t>(count), 1.0F);
    EXPECT_LE(decibels(mix(all, 0).left), 1.7) << count << " channels, with the low frequencies";
  }
}

TEST(Downmix, KeepsTheProportionsOfTheRecommendation) {
  const float front = mix({1, 0, 0, 0, 0, 0}, kFiveAndLow).left;
  EXPECT_NEAR(decibels(front), -7.66, 0.01);
  EXPECT_NEAR(decibels(mix({0, 0, 1, 0, 0, 0}, kFiveAndLow).left / front), -3.01, 0.01);
  EXPECT_NEAR(decibels(mix({0, 0, 0, 0, 1, 0}, kFiveAndLow).left / front), -3.01, 0.01);
  EXPECT_NEAR(decibels(mix({0, 0, 0, 1, 0, 0}, kFiveAndLow).left / front), -6.02, 0.01);
  EXPECT_EQ(mix({0, 0, 0, 0, 0, 1}, kFiveAndLow).left, 0.0F);
}

TEST(Downmix, TakesUsualPlacesWithoutAMask) {
  const std::vector<float> channels = {0.1F, 0.2F, 0.3F, 0.4F, 0.5F, 0.6F};
  EXPECT_EQ(mix(channels, 0), mix(channels, kFiveAndLow));
}

TEST(Downmix, PutsChannelsBeyondTheMaskIntoBoth) {
  const StereoFrame out = mix({0, 0, 0, 1}, 0x7);
  EXPECT_GT(out.left, 0.1F);
  EXPECT_EQ(out.left, out.right);
}

}  // namespace
}  // namespace tandem

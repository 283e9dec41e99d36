#include "engine/pitch/splice_fade.h"

#include <gtest/gtest.h>

#include <cmath>

#include "engine/pitch/pitch_signals.h"

namespace tandem {
namespace {

// The whole fade, in blocks of 100 frames, from `old` to `fresh`.
std::vector<StereoFrame> faded(SpliceFade& fade, std::span<const StereoFrame> old, std::vector<StereoFrame> fresh) {
  std::size_t at = 0;
  while (fade.active()) {
    const auto count = static_cast<std::size_t>(std::min<Frames>(fade.left(), 100));
    fade.mix(old.subspan(at, count), std::span(fresh).subspan(at, count));
    at += count;
  }
  return fresh;
}

double power(std::span<const StereoFrame> sound) {
  double sum = 0.0;
  for (const StereoFrame& frame : sound) sum += static_cast<double>(frame.left) * static_cast<double>(frame.left);
  return sum / static_cast<double>(sound.size());
}

TEST(SpliceFade, EqualSoundsStayAsTheyAre) {
  SpliceFade fade;
  const std::vector<StereoFrame> sound = noise(882);
  for (const Frames length : {882, 441, 220}) {
    fade.start(10.0, length, 1.0F);
    const auto out = faded(fade, sound, sound);
    for (std::size_t i = 0; i < out.size(); ++i) ASSERT_NEAR(out[i].left, sound[i].left, 1e-6F);
  }
}

TEST(SpliceFade, GoesFromOneSoundToTheOther) {
  SpliceFade fade;
  fade.start(10.0, 882, 1.0F);
  const auto out =
      faded(fade, std::vector<StereoFrame>(882, {1.0F, 0.0F}), std::vector<StereoFrame>(882, {0.0F, 1.0F}));
  EXPECT_NEAR(out.front().left, 1.0F, 1e-4F);
  EXPECT_NEAR(out[441].left, 0.5F, 2e-3F);
  EXPECT_NEAR(out.back().left, 0.0F, 1e-4F);
  EXPECT_NEAR(out.back().right, 1.0F, 1e-4F);
}

// With the plain weights the power would fall to a half in the middle.
TEST(SpliceFade, SoundsThatDifferKeepTheirPower) {
  double middle = 0.0;
  double ends = 0.0;
  for (unsigned seed = 1; seed <= 20; ++seed) {
    SpliceFade fade;
    fade.start(10.0, 882, 0.0F);
    const std::vector<StereoFrame> fresh = noise(882, seed + 100);
    const auto out = faded(fade, noise(882, seed), fresh);
    middle += power(std::span(out).subspan(341, 200));
    ends += power(fresh);
  }
  EXPECT_NEAR(middle / ends, 1.0, 0.1);
}

TEST(SpliceFade, IsOverAfterItsLengthAndHasNoJumpThen) {
  SpliceFade fade;
  EXPECT_FALSE(fade.active());
  fade.start(-33.5, 441, 1.0F);
  EXPECT_EQ(fade.left(), 441);
  EXPECT_EQ(fade.jump(), -33.5);
  faded(fade, std::vector<StereoFrame>(441), std::vector<StereoFrame>(441));
  EXPECT_FALSE(fade.active());
  EXPECT_EQ(fade.jump(), 0.0);
}

}  // namespace
}  // namespace tandem

#include "engine/equalizer/band_equalizer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "engine/equalizer/band_equalizer_rig.h"
#include "support/odd_pieces.h"

namespace tandem {
namespace {

using namespace equalizer_test;

StereoFrame direct_sum(const std::vector<float>& taps, const Sound& in, std::size_t n) {
  double left = 0.0;
  double right = 0.0;
  for (std::size_t k = 0; k < taps.size() && k <= n; ++k) {
    left += double{taps[k]} * double{in[n - k].left};
    right += double{taps[k]} * double{in[n - k].right};
  }
  return {static_cast<float>(left), static_cast<float>(right)};
}

TEST(BandEqualizer, DelaysByAtMostOnePartition) { EXPECT_LE(kDelay, 256U); }

TEST(BandEqualizer, WithoutAFilterIsBitExact) {
  const Sound in = seeded_noise(30000, 1);
  Sound out = in;
  Rig rig;
  rig.play_steps(out);
  for (std::size_t n = 0; n < kDelay; ++n) ASSERT_EQ(out[n], StereoFrame{});
  for (std::size_t n = kDelay; n < out.size(); ++n) ASSERT_EQ(out[n], in[n - kDelay]) << n;
}

TEST(BandEqualizer, EqualsTheDirectSum) {
  const auto bands = bands_of(-12, 12, 6);
  const auto taps = design_taps(bands);
  const Sound in = seeded_noise(20000, 2);
  Sound out = in;
  Rig rig;
  rig.adopt(bands);
  rig.play_steps(out);
  for (std::size_t n = 2000; n < in.size() - kDelay; n += 37) {
    const StereoFrame expected = direct_sum(taps, in, n);
    // Rounding of 24-bit numbers through 512 points and 32 sums: -110 dB.
    ASSERT_NEAR(out[n + kDelay].left, expected.left, 3e-6F) << n;
    ASSERT_NEAR(out[n + kDelay].right, expected.right, 3e-6F) << n;
  }
}

TEST(BandEqualizer, EveryTapIsHeardAtItsPlace) {
  std::vector<float> taps(EqualizerFilter::kTaps);
  std::mt19937 random(3);
  for (float& tap : taps) tap = static_cast<float>(random() % 2001) / 1000.0F - 1.0F;
  const EqualizerFilter filter(taps);
  BandEqualizer equalizer;
  equalizer.adopt(&filter);
  Sound sound(10 * 1024 + kDelay + EqualizerFilter::kTaps);
  const std::size_t at = 1100;  // well past the first fade
  sound[at] = {1.0F, -0.5F};
  equalizer.process(sound);
  for (std::size_t n = 0; n < taps.size(); ++n) {
    ASSERT_NEAR(sound[at + kDelay + n].left, taps[n], 2e-6F) << n;
    ASSERT_NEAR(sound[at + kDelay + n].right, -0.5F * taps[n], 2e-6F) << n;
  }
  for (std::size_t n = at + kDelay + taps.size(); n < sound.size(); ++n) ASSERT_NEAR(sound[n].left, 0.0F, 2e-6F);
}

TEST(BandEqualizer, AFilterOfOneTapIsTimeAlignedWithNone) {
  const std::vector<float> one{1.0F};
  const EqualizerFilter filter(one);
  const Sound in = seeded_noise(20000, 4);
  Sound out = in;
  BandEqualizer equalizer;
  equalizer.process(std::span(out).first(5000));
  equalizer.adopt(&filter);
  equalizer.process(std::span(out).subspan(5000));
  for (std::size_t n = kDelay; n < out.size(); ++n) ASSERT_NEAR(out[n].left, in[n - kDelay].left, 1e-6F) << n;
}

TEST(BandEqualizer, AFilterThatBeginsLateKnowsTheWholePast) {
  const auto bands = bands_of(12, -12, 12);
  const auto taps = design_taps(bands);
  const Sound in = seeded_noise(24000, 5);
  Sound out = in;
  Rig rig;
  const std::size_t start = 15000;
  rig.play(std::span(out).first(start));
  rig.adopt(bands);
  rig.play(std::span(out).subspan(start));
  for (std::size_t n = 0; n < start - kDelay; ++n) ASSERT_EQ(out[n + kDelay], in[n]);
  for (std::size_t n = start + kFade; n < start + kFade + 2000; n += 11) {
    ASSERT_NEAR(out[n + kDelay].left, direct_sum(taps, in, n).left, 4e-6F) << n;
  }
}

TEST(BandEqualizer, IsBitExactAgainAfterBypass) {
  const Sound in = seeded_noise(40000, 6);
  Sound out = in;
  Rig rig;
  rig.adopt(bands_of(6, 6, -6));
  rig.play(std::span(out).first(20000));
  rig.equalizer.adopt(nullptr);
  rig.play(std::span(out).subspan(20000));
  for (std::size_t n = 20000 + kPartition + kFade; n + kDelay < out.size(); ++n) ASSERT_EQ(out[n + kDelay], in[n]) << n;
  EXPECT_EQ(rig.filters_out(), 0U);
}

TEST(BandEqualizer, GivesTheSameSoundForAnyLengthOfCall) {
  const auto bands = bands_of(3, -9, 12);
  Sound steps = seeded_noise(30000, 7);
  Sound odd = steps;
  Rig a;
  Rig b;
  a.adopt(bands);
  b.adopt(bands);
  a.play_steps(steps);
  test::process_in_odd_pieces(odd, [&b](std::span<StereoFrame> piece) { b.play(piece); });
  EXPECT_EQ(steps, odd);
}

TEST(BandEqualizer, EveryBandUpIsPlainGain) {
  const Sound in = seeded_noise(20000, 9);
  Sound out = in;
  Rig rig;
  rig.adopt(bands_of(12, 12, 12));
  rig.play_steps(out);
  const float up = std::pow(10.0F, 0.6F);
  for (std::size_t n = 2000; n < in.size() - kDelay; ++n) ASSERT_NEAR(out[n + kDelay].left, up * in[n].left, 5e-6F);
}

TEST(BandEqualizer, ResetLeavesSilenceAndTheNewestFilter) {
  Rig rig;
  rig.adopt(bands_of(6, 6, 6));
  Sound sound = seeded_noise(700, 11);
  rig.play(sound);
  rig.adopt(bands_of(-6, -6, -6));
  rig.equalizer.reset();
  rig.collect();
  EXPECT_EQ(rig.filters_out(), 1U);
  Sound silence(20000);
  rig.play(silence);
  for (const StereoFrame& frame : silence) ASSERT_EQ(frame, StereoFrame{});
  const Sound in = seeded_noise(2000, 12);
  Sound out = in;
  rig.equalizer.reset();
  rig.play(out);
  const float down = std::pow(10.0F, -6.0F / 20.0F);
  for (std::size_t n = 0; n < in.size() - kDelay; ++n) ASSERT_NEAR(out[n + kDelay].left, down * in[n].left, 2e-6F);
}

}  // namespace
}  // namespace tandem

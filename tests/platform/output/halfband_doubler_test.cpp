#include "platform/output/halfband_doubler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include "platform/tone_spectrum.h"

namespace tandem {
namespace {

using Sound = std::vector<StereoFrame>;

Sound noise(std::size_t frames) {
  std::mt19937 random(1);
  std::uniform_real_distribution<float> sample(-1.0F, 1.0F);
  Sound sound(frames);
  for (StereoFrame& frame : sound) frame = {sample(random), sample(random)};
  return sound;
}

Sound tone(double hz, double rate, std::size_t frames) {
  Sound sound(frames);
  for (std::size_t n = 0; n < frames; ++n)
    sound[n].left = static_cast<float>(std::sin(2 * std::numbers::pi * hz * static_cast<double>(n) / rate));
  return sound;
}

void read_all(HalfbandDoubler& doubler, std::size_t piece, Sound& into) {
  Sound out(piece);
  while (const std::size_t count = doubler.read(out))
    into.insert(into.end(), out.begin(), out.begin() + static_cast<std::ptrdiff_t>(count));
}

Sound doubled(HalfbandDoubler& doubler, const Sound& sound, std::size_t piece) {
  Sound result;
  for (std::size_t at = 0; at < sound.size();) {
    const std::size_t count = std::min({piece, sound.size() - at, doubler.input().size()});
    std::copy_n(sound.begin() + static_cast<std::ptrdiff_t>(at), count, doubler.input().begin());
    doubler.take(count);
    at += count;
    read_all(doubler, piece, result);
  }
  doubler.end();
  read_all(doubler, piece, result);
  return result;
}

TEST(HalfbandDoubler, EveryOtherFrameIsOneThatCame) {
  HalfbandDoubler doubler;
  const Sound sound = noise(1000);
  const Sound result = doubled(doubler, sound, 1000);
  ASSERT_EQ(result.size(), 2 * sound.size());
  for (std::size_t n = 0; n < sound.size(); ++n) ASSERT_EQ(result[2 * n], sound[n]) << n;
}

TEST(HalfbandDoubler, ThePiecesInWhichSoundComesMakeNoDifferenceNorDoesTheSoundBefore) {
  HalfbandDoubler doubler;
  const Sound sound = noise(1000);
  const Sound whole = doubled(doubler, sound, 1000);
  for (const std::size_t piece : {1U, 3U, 7U, 64U, 127U}) EXPECT_EQ(doubled(doubler, sound, piece), whole) << piece;
}

TEST(HalfbandDoubler, ASoundShorterThanTheFilterIsWhole) {
  HalfbandDoubler doubler;
  for (const std::size_t frames : {0U, 1U, 9U, 10U, 11U}) {
    const Sound sound = noise(frames);
    const Sound result = doubled(doubler, sound, 5);
    ASSERT_EQ(result.size(), 2 * frames);
    for (std::size_t n = 0; n < frames; ++n) EXPECT_EQ(result[2 * n], sound[n]) << n << " of " << frames;
  }
}

TEST(HalfbandDoubler, TonesUpToAQuarterOfTheRateHaveNoImages) {
  HalfbandDoubler doubler;
  for (const double hz : {20.0, 997.0, 20000.0, 24000.0}) {
    const test::ToneSpectrum spectrum(doubled(doubler, tone(hz, 96000, 50000), 128), 192000, hz);
    EXPECT_LT(spectrum.worst(), -130) << hz << " Hz: at " << spectrum.worst_hz();
    EXPECT_NEAR(spectrum.level(), 0.0, 0.001) << hz << " Hz";
  }
}

}  // namespace
}  // namespace tandem

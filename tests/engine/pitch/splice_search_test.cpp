#include "engine/pitch/splice_search.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "engine/pitch/pitch_signals.h"

namespace tandem {
namespace {

SlidingWindow window_of(std::span<const StereoFrame> sound) {
  SlidingWindow window(sound.size());
  window.add(sound);
  return window;
}

SpliceRange around(Frames centre, float bias = 0.25F) {
  return {centre - SpliceSearch::kReach, centre + SpliceSearch::kReach, static_cast<double>(centre), bias};
}

TEST(SpliceSearch, FindsTheCopyOfASound) {
  std::vector<StereoFrame> sound = noise(8000);
  std::copy_n(sound.begin() + 1000, 900, sound.begin() + 5321);
  const Splice splice = SpliceSearch().best(window_of(sound), 1000.0, around(5000));
  EXPECT_NEAR(splice.place, 5321.0, 0.01);
  EXPECT_GT(splice.likeness, 0.999F);
}

// 55 dB is what a tone must be clean by: its phase may differ by 1.8 mrad at every splice. In 20 ms there are only two
// periods of the lowest tone here, so it is found less exactly.
TEST(SpliceSearch, FindsThePhaseOfATone) {
  SpliceSearch search;
  for (const double hz : {110.5, 997.0, 2411.0, 5303.0, 7901.0}) {
    const SlidingWindow window = window_of(tones(8000, {hz}));
    for (const double tail : {1000.0, 1000.3, 1000.77}) {
      const double place = search.best(window, tail, around(5000)).place;
      const double periods = (place - tail) * hz / kSampleRate;
      EXPECT_NEAR(periods, std::round(periods), (hz < 200.0 ? 0.006 : 0.0018) / (2.0 * std::numbers::pi))
          << hz << " Hz from " << tail;
    }
  }
}

TEST(SpliceSearch, OfEqualPlacesItTakesTheNearestToTheCentre) {
  const SlidingWindow window = window_of(tones(8000, {441.0}));
  const Splice splice = SpliceSearch().best(window, 1000.0, around(5030));
  EXPECT_NEAR(splice.place, 5000.0, 0.05);
}

TEST(SpliceSearch, ALargeBiasOutweighsALittleLikeness) {
  std::vector<StereoFrame> sound = tones(8000, {441.0});
  const std::vector<StereoFrame> hiss = noise(8000);
  for (std::size_t i = 0; i < sound.size(); ++i) sound[i].left += 0.05F * hiss[i].left;
  std::copy_n(sound.begin() + 1000, 900, sound.begin() + 5500);
  EXPECT_NEAR(SpliceSearch().best(window_of(sound), 1000.0, around(5000, 0.0F)).place, 5500.0, 0.5);
  EXPECT_NEAR(SpliceSearch().best(window_of(sound), 1000.0, around(5000, 1.0F)).place, 5000.0, 2.0);
}

TEST(SpliceSearch, StaysWithinItsRange) {
  SpliceSearch search;
  const SlidingWindow window = window_of(noise(8000));
  for (Frames low = 3000; low < 4000; low += 100) {
    const double place = search.best(window, 1000.0, {low, low + 200, static_cast<double>(low), 0.0F}).place;
    EXPECT_GE(place, static_cast<double>(low - SpliceSearch::kMargin));
    EXPECT_LE(place, static_cast<double>(low + 200 + SpliceSearch::kMargin));
  }
}

TEST(SpliceSearch, InSilenceItTakesTheCentreAndSaysThatNothingIsAlike) {
  const Splice splice = SpliceSearch().best(window_of(std::vector<StereoFrame>(8000)), 1000.0, around(5000));
  EXPECT_NEAR(splice.place, 5000.0, 4.0);
  EXPECT_EQ(splice.likeness, 0.0F);
}

}  // namespace
}  // namespace tandem

// That the spectrum is alive with music of any kind, from the first start on; bench/displays_bench asks the same of
// recordings.
#include "displays/spectrum_movement.h"

#include <gtest/gtest.h>

#include "support/short_runs.h"
#include "tools/pictures/synthetic_music.h"

namespace tandem {
namespace {

constexpr double kSeconds = 20.0;
constexpr const char* kOnceIsEnough = "the band runs the same code";

using Music = std::vector<SoundFrame>;

Music at_level(Music music, float factor) {
  for (SoundFrame& frame : music) frame = {factor * frame.left, factor * frame.right};
  return music;
}

void expect_alive(const Music& music) {
  for (const SpectrumMovement& movement : spectrum_movement(music)) {
    EXPECT_GE(movement.mean, SpectrumMovement::kLeastMean) << movement.state;
    EXPECT_LE(movement.mean, SpectrumMovement::kGreatestMean) << movement.state;
    EXPECT_GE(movement.weakest, SpectrumMovement::kLeastMove) << movement.weakest_hz << " Hz, " << movement.state;
    EXPECT_LT(movement.at_top, SpectrumMovement::kMostAtTop) << movement.state;
    EXPECT_GT(movement.columns, 20U) << movement.state;
    EXPECT_TRUE(movement.rests) << movement.state;
  }
}

TEST(SpectrumMovement, IsAliveWithABand) {
  if (test::kShortRuns) GTEST_SKIP() << "a minute of arithmetic, which tests of its parts do too";
  expect_alive(band_music(kSeconds));
}

TEST(SpectrumMovement, IsAliveWithACompressedRecording) {
  if (test::kShortRuns) GTEST_SKIP() << kOnceIsEnough;
  expect_alive(dense_music(kSeconds));
}

TEST(SpectrumMovement, IsAliveWithSpeech) {
  if (test::kShortRuns) GTEST_SKIP() << kOnceIsEnough;
  expect_alive(spoken_words(kSeconds));
}

TEST(SpectrumMovement, IsAliveWithAQuietRecording) {
  if (test::kShortRuns) GTEST_SKIP() << kOnceIsEnough;
  expect_alive(at_level(band_music(kSeconds), 0.25F));
}

}  // namespace
}  // namespace tandem

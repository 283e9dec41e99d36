// What the pitch stage does to attacks, tones and images: the limits that the sound must keep at every pitch value.
#include <gtest/gtest.h>

#include <string>

#include "engine/pitch/pitch_deck.h"
#include "engine/pitch/pitch_measures.h"
#include "engine/pitch/pitch_signals.h"
#include "engine/pitch/pitch_songs.h"
#include "support/short_runs.h"

namespace tandem {
namespace {

class PitchLimits : public testing::TestWithParam<int> {
 protected:
  // One thread and much arithmetic.
  void SetUp() override {
    if (test::kShortRuns && value() != -20) GTEST_SKIP() << "the other values run the same code";
  }

  float value() const { return static_cast<float>(GetParam()); }
  double ratio() const { return ratio_of_semitones(GetParam() / 5.0); }
  AttackReport attacks(const AttackSong& song, const AttackBand& band) const {
    return compare_attacks(song, shifted(song.sound, value()), ratio(), band);
  }
};

INSTANTIATE_TEST_SUITE_P(Value, PitchLimits, testing::Values(-20, -10, -3, 3, 10, 20), [](const auto& test) {
  return (test.param < 0 ? "down" : "up") + std::to_string(std::abs(test.param));
});

TEST_P(PitchLimits, TonesAreCleanBy55Decibels) {
  for (const double hz : {110.5, 440.7, 1063.0, 1687.0, 2411.0, 3467.0, 5303.0, 7901.0}) {
    const std::vector<double> given{hz * ratio()};
    EXPECT_LT(off_tone_db(shifted(one_tone(hz, 2.5), value()), given), -55.0) << hz;
  }
}

TEST(PitchTones, AreCleanBy55DecibelsAtEveryValue) {
  if (test::kShortRuns) GTEST_SKIP() << "minutes of arithmetic that a few values do too";
  for (int value = -20; value <= 20; ++value)
    for (const double hz : {1063.0, 2411.0, 5303.0, 7901.0}) {
      const std::vector<double> given{hz * ratio_of_semitones(value / 5.0)};
      EXPECT_LT(off_tone_db(shifted(one_tone(hz, 2.0), static_cast<float>(value)), given), -55.0) << hz << " " << value;
    }
}

// The best that splices alone can do with sixteen partials: 27 dB at 4 semitones, 50 at a fifth of one.
TEST_P(PitchLimits, AChordIsCleanBy26Decibels) {
  std::vector<double> given = chord_partials();
  for (double& hz : given) hz *= ratio();
  EXPECT_LT(off_tone_db(shifted(chord(2.5), value()), given), -26.0);
}

TEST_P(PitchLimits, NoImpulseInAChordIsLostOrDoubled) {
  for (const float level : {0.5F, 0.15F}) {
    const AttackReport report = attacks(impulses_in_chord(level), kImpulseBand);
    EXPECT_EQ(report.lost, 0) << level;
    EXPECT_EQ(report.doubled, 0) << level;
    EXPECT_LT(report.worst_error_ms, 5.0) << level;
  }
}

TEST_P(PitchLimits, AnImpulseInSilenceStaysWhatItIs) {
  const AttackReport report = attacks(impulses(0.5F), kImpulseBand);
  EXPECT_EQ(report.lost + report.doubled, 0);
  EXPECT_GT(report.worst_loss_db, -0.5);
  EXPECT_LT(report.worst_error_ms, 5.0);
}

TEST_P(PitchLimits, HatsKeepTheirLevelAndTheirTime) {
  const AttackReport report = attacks(hats_in_music(), kHatBand);
  EXPECT_GT(report.worst_loss_db, -3.0);
  EXPECT_LT(report.worst_error_ms, 5.0);
  EXPECT_EQ(report.doubled, 0);
}

TEST_P(PitchLimits, DrumsKeepTheirLevelAndTheirTime) {
  const AttackReport report = attacks(drums_in_music(), kDrumBand);
  EXPECT_GT(report.worst_loss_db, -3.0);
  EXPECT_LT(report.worst_error_ms, 5.0);
  EXPECT_EQ(report.doubled, 0);
}

// In the middle of a fade that does not know how unlike its two sounds are, noise loses 3 dB. 10 ms of noise differ by
// half a decibel as they are, and up to 1.2 dB of it leaves the band at 4 semitones.
TEST_P(PitchLimits, NoiseDoesNotPump) {
  const Sound song = noise(3 * 44100);
  const LevelRange range = levels_db(shifted(song, value()), song);
  EXPECT_GT(range.least, -2.0);
  EXPECT_LT(range.greatest, 0.8);
}

TEST(PitchImages, WhatLiesAbove20KilohertzDoesNotComeBackBelow) {
  for (const float value : {-20.0F, -15.0F, -10.0F}) {
    const double ratio = ratio_of_semitones(static_cast<double>(value) / 5.0);
    for (const double hz : {20000.0, 20500.0, 21000.0, 21500.0, 21900.0}) {
      const Sound out = shifted(one_tone(hz, 0.7), value);
      EXPECT_LT(tone_db(out, (kSampleRate - hz) * ratio), -60.0) << hz << " Hz at " << value;
    }
  }
}

TEST(PitchImages, TheTopOfTheSongStaysWhenItGoesDown) {
  for (const float value : {-20.0F, -10.0F, -5.0F}) {
    const double ratio = ratio_of_semitones(static_cast<double>(value) / 5.0);
    for (const double hz : {10000.0, 16000.0, 19000.0})
      EXPECT_NEAR(tone_db(shifted(one_tone(hz, 0.7), value), hz * ratio), 0.0, 0.2) << hz << " Hz at " << value;
  }
}

}  // namespace
}  // namespace tandem

#include "displays/spectrum/band_analyser.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "displays/tones.h"
#include "support/short_runs.h"

namespace tandem {
namespace {

constexpr std::size_t kBands = 33;
using Powers = BothSides<std::vector<float>>;

struct Rig {
  explicit Rig(double sharpness = 1.0, FftWindow window = FftWindow::Hamming) {
    bands.prepare(sharpness, window, axis, kBands);
    for (auto& side : powers) side.assign(kBands, 0.0F);
  }
  // What the bands read after the sound, of its last two pictures.
  const Powers& hear(const Sound& sound) {
    bands.feed(std::span(sound).first(sound.size() - 1470));
    bands.take(powers);
    bands.feed(std::span(sound).last(1470));
    EXPECT_TRUE(bands.take(powers));
    return powers;
  }
  double db(std::size_t band, std::size_t side = 0) const {
    return 10.0 * std::log10(static_cast<double>(powers[side][band]) + 1e-20);
  }
  std::size_t highest(std::size_t side = 0) const {
    return static_cast<std::size_t>(std::max_element(powers[side].begin(), powers[side].end()) - powers[side].begin());
  }

  FrequencyAxis axis;
  BandAnalyser bands;
  Powers powers;
};

std::size_t band_of(double hz) { return static_cast<std::size_t>(FrequencyAxis{}.position(hz) * kBands); }
double middle_of(std::size_t band) { return FrequencyAxis{}.hz((static_cast<double>(band) + 0.5) / kBands); }

TEST(BandAnalyser, AFullScaleSineReadsOneInItsBandForEveryWindowAndLength) {
  for (const double sharpness : {0.5, 1.0, 2.0})
    for (const FftWindow window : kWindows)
      for (const std::size_t band : {2U, 8U, 11U, 20U, 23U, 31U}) {
        Rig rig(sharpness, window);
        rig.hear(sine(frames_in(1.0), middle_of(band)));
        EXPECT_EQ(rig.highest(), band) << sharpness << " " << static_cast<int>(window);
        EXPECT_NEAR(rig.db(band), 0.0, 1.2) << sharpness << " " << static_cast<int>(window) << " " << band;
      }
}

TEST(BandAnalyser, SeparatesNeighbouringNotesOfTheBass) {
  Rig rig;
  rig.hear(sine(frames_in(1.0), middle_of(6)));
  EXPECT_LT(rig.db(3), -35.0);
  EXPECT_LT(rig.db(9), -35.0);
  EXPECT_LT(rig.db(20), -45.0) << "the side lobes of the window, no more";
}

TEST(BandAnalyser, NothingFoldsBackIntoTheBass) {
  for (const double hz : {420.0, 450.0, 640.0, 1330.0, 3400.0, 5300.0, 10800.0, 19000.0}) {
    Rig rig;
    rig.hear(sine(frames_in(1.0), hz));
    for (std::size_t band = 0; band < 9; ++band) EXPECT_LT(rig.db(band), -40.0) << hz << " in " << band;
  }
}

TEST(BandAnalyser, KeepsTheSidesApart) {
  Rig rig;
  Sound sound = sine(frames_in(1.0), 440.0);
  for (SoundFrame& frame : sound) frame.right = 0.0F;
  rig.hear(sound);
  EXPECT_NEAR(rig.db(band_of(440.0), 0), 0.0, 1.2);
  for (std::size_t band = 0; band < kBands; ++band) EXPECT_LT(rig.db(band, 1), -80.0);
}

// The greatest reading of any band while a burst of 1 ms at -6 dB passes that begins at a frame.
double burst_db(double sharpness, std::size_t begin, std::size_t per_picture) {
  Rig rig(sharpness);
  Sound sound(frames_in(0.3));
  const Sound burst = sine(44, 5000.0, amplitude_of(-6.0));
  std::copy(burst.begin(), burst.end(), sound.begin() + static_cast<std::ptrdiff_t>(begin));
  float greatest = 0.0F;
  for (std::size_t at = 0; at + per_picture <= sound.size(); at += per_picture) {
    rig.bands.feed(std::span(sound).subspan(at, per_picture));
    if (!rig.bands.take(rig.powers)) continue;
    greatest = std::max(greatest, *std::max_element(rig.powers[0].begin(), rig.powers[0].end()));
  }
  return 10.0 * std::log10(static_cast<double>(greatest) + 1e-20);
}

TEST(BandAnalyser, ABurstOfAMillisecondIsSeenWhereverItFalls) {
  for (const double sharpness : {0.5, 1.0, 2.0})
    for (const std::size_t per_picture : {735U, 1470U})
      for (std::size_t begin = 2000; begin < 4000; begin += 37)
        EXPECT_GT(burst_db(sharpness, begin, per_picture), -34.0) << sharpness << " " << begin;
}

TEST(BandAnalyser, ASteadyToneStandsStill) {
  for (const double sharpness : {0.5, 1.0, 2.0})
    for (const FftWindow window : kWindows)
      for (const double hz : {50.0, 60.0, 100.0, 261.6, 1000.0}) {
        if (test::kShortRuns && hz != 50.0) continue;
        Rig rig(sharpness, window);
        const Sound tone = sine(frames_in(2.0), hz);
        rig.bands.feed(std::span(tone).first(frames_in(0.5)));
        rig.bands.take(rig.powers);
        double least = 100.0;
        double most = -100.0;
        for (std::size_t at = frames_in(0.5); at + 735 <= tone.size(); at += 735) {
          rig.bands.feed(std::span(tone).subspan(at, 735));
          rig.bands.take(rig.powers);
          least = std::min(least, rig.db(band_of(hz)));
          most = std::max(most, rig.db(band_of(hz)));
        }
        EXPECT_LT(most - least, 2.0) << hz << " " << sharpness << " " << static_cast<int>(window);
      }
}

TEST(BandAnalyser, TheSizeOfTheLotsDoesNotMatter) {
  const Sound tone = sine(512 * 40, 700.0);
  Rig whole;
  Rig parts;
  whole.bands.feed(tone);
  for (std::size_t at = 0; at < tone.size(); at += 128) parts.bands.feed(std::span(tone).subspan(at, 128));
  EXPECT_TRUE(whole.bands.take(whole.powers));
  EXPECT_TRUE(parts.bands.take(parts.powers));
  EXPECT_EQ(whole.powers, parts.powers);
  EXPECT_FALSE(whole.bands.take(whole.powers)) << "nothing new";
}

TEST(BandAnalyser, ClearedItRemembersNothing) {
  const Sound tone = sine(frames_in(0.5), 100.0);
  Rig used;
  used.hear(tone);
  used.bands.clear();
  used.hear(Sound(2048));
  EXPECT_EQ(*std::max_element(used.powers[0].begin(), used.powers[0].end()), 0.0F);
}

TEST(BandAnalyser, SilenceComesBackAfterTheLastWindow) {
  Rig rig;
  rig.hear(sine(frames_in(0.5), 100.0));
  EXPECT_FALSE(rig.bands.silent());
  rig.hear(Sound(frames_in(1.0)));
  EXPECT_EQ(*std::max_element(rig.powers[0].begin(), rig.powers[0].end()), 0.0F);
  EXPECT_TRUE(rig.bands.silent());
}

}  // namespace
}  // namespace tandem

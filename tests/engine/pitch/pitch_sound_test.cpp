// How the pitch stage sounds: frequency, purity, time, and what is heard when the value moves.
#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "engine/pitch/pitch_deck.h"
#include "engine/pitch/pitch_signals.h"
#include "support/short_runs.h"

namespace tandem {
namespace {

// One thread and much arithmetic: a thread checker would find nothing, and take minutes.
class PitchSound : public testing::Test {
 protected:
  void SetUp() override {
#ifdef __SANITIZE_THREAD__
    GTEST_SKIP() << "one thread only";
#endif
  }
};

// Splices are whole periods of this tone (100 frames), so nothing but the interpolation is left: its filters stop at
// 100 dB.
TEST_F(PitchSound, AToneMovesBySemitonesAndStaysPure) {
  for (const float value : {-20.0F, -15.0F, -10.0F, -5.0F, 3.0F, 5.0F, 10.0F, 15.0F, 20.0F}) {
    const Sound out = shifted(tones(7 * 44100, {441.0}), value);
    const double frequency = 441.0 * ratio_of_semitones(static_cast<double>(value) / 5.0);
    EXPECT_LT(residue_db(std::span(out).subspan(4410, 5 * 44100), frequency), -90.0) << value;
  }
}

TEST_F(PitchSound, LoudnessAndChannelsStay) {
  const Sound song = tones(44100, {441.0});
  const Sound out = shifted(song, 10.0F);
  double before = 0.0;
  double after = 0.0;
  for (std::size_t i = 8820; i < 35280; ++i) {
    before += static_cast<double>(song[i].left) * static_cast<double>(song[i].left);
    after += static_cast<double>(out[i].left) * static_cast<double>(out[i].left);
    ASSERT_NEAR(out[i].right, out[i].left / 2.0F, 1e-6F);
  }
  EXPECT_NEAR(10.0 * std::log10(after / before), 0.0, 0.02);
}

// Tones above what 44100 Hz can carry after the shift do not fold back below 20 kHz; lower ones stay as loud.
TEST_F(PitchSound, NothingFoldsBackAndTheTopStays) {
  const auto level = [](double frequency, float value) {
    const Sound out = shifted(tones(22050, {frequency}), value);
    float peak = 0.0F;
    for (std::size_t i = 4410; i < 17640; ++i) peak = std::max(peak, std::abs(out[i].left));
    return decibel(static_cast<double>(peak) * 2.0);
  };
  EXPECT_LT(level(20000.0, 20.0F), -90.0);  // would be 25.2 kHz, and fold to 18.9
  EXPECT_GT(level(14500.0, 20.0F), -1.0);   // 18.3 kHz
  EXPECT_GT(level(18000.0, -20.0F), -1.5);
}

// Bursts of 5 ms, 0.37 s apart, for some seconds: how far the middle of each lies from where the song has it, in ms.
std::vector<double> burst_offsets(float value, std::size_t seconds) {
  constexpr std::size_t kEvery = 16317;
  Sound song(seconds * 44100);
  for (std::size_t at = kEvery; at + kEvery < song.size(); at += kEvery) {
    for (std::size_t i = 0; i < 220; ++i) {
      const auto wave = static_cast<float>(0.5 * std::sin(static_cast<double>(i) * 0.1425));
      song[at + i] = {wave, wave};
    }
  }
  const Sound out = shifted(song, value);
  const auto middle = [](const Sound& sound, std::size_t at) {
    double energy = 1e-9;
    double moment = 0.0;
    for (std::size_t i = at - 2205; i < at + 2205; ++i) {
      const double e = static_cast<double>(sound[i].left) * static_cast<double>(sound[i].left);
      energy += e;
      moment += e * static_cast<double>(i);
    }
    return moment / energy;
  };
  std::vector<double> offsets;
  for (std::size_t at = kEvery; at + kEvery < song.size(); at += kEvery) {
    offsets.push_back((middle(out, at) - middle(song, at)) * 1000.0 / kSampleRate);
  }
  return offsets;
}

double mean(std::span<const double> values) {
  return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

// Splices are 30 ms apart, in which the sound moves away from the song by at most 4 ms to either side; an onset that
// they are chosen by moves a little more.
TEST_F(PitchSound, OnsetsStayInTimeAndDoNotDrift) {
  for (const float value : {-20.0F, -10.0F, -1.0F, 1.0F, 10.0F, 20.0F}) {
    if (test::kShortRuns && value != 10.0F) continue;
    const std::vector<double> offsets = burst_offsets(value, std::abs(value) < 20.0F ? 15 : 60);
    const auto worst =
        std::max_element(offsets.begin(), offsets.end(), [](double a, double b) { return std::abs(a) < std::abs(b); });
    EXPECT_LT(std::abs(*worst), 5.5) << value;
    EXPECT_NEAR(mean(offsets), 0.0, 1.5) << value;
    const std::span half = std::span(offsets).first(offsets.size() / 2);
    EXPECT_NEAR(mean(half), mean(std::span(offsets).last(half.size())), 0.7) << value;
  }
}

Sound dragged(Sound song) {
  PitchDeck deck(std::move(song));
  deck.clear(0.0F);
  deck.steps(30);
  for (int i = 0; i < 150; ++i) {
    deck.change(std::round(20.0F * std::sin(static_cast<float>(i) * 0.07F)));
    deck.step();
  }
  deck.change(0.0F);
  deck.steps(100);
  return deck.out;
}

TEST_F(PitchSound, DraggingThroughZeroDoesNotClick) {
  EXPECT_LT(high_peak_db(dragged(tones(3 * 44100, {441.0}))), -90.0);
  EXPECT_LT(high_peak_db(dragged(tones(3 * 44100, {97.0}))), -90.0);
  EXPECT_LT(high_peak_db(dragged(tones(3 * 44100, {220.0, 277.0, 330.0}))), -90.0);
}

TEST_F(PitchSound, GoingToAValueAndBackDoesNotClick) {
  for (const float value : {1.0F, -1.0F, 10.0F, -20.0F, 20.0F}) {
    PitchDeck deck(tones(2 * 44100, {441.0}));
    deck.clear(0.0F);
    deck.steps(20);
    deck.change(value);
    deck.steps(40);
    deck.change(0.0F);
    deck.steps(100);
    EXPECT_LT(high_peak_db(deck.out), -90.0) << value;
  }
}

// How far a stretch of the output is from the song's own time: the lag of the best correlation, in ms.
double lag_ms(const PitchDeck& deck, std::size_t from, std::size_t count) {
  double best = -1.0;
  int best_lag = 0;
  for (int lag = -600; lag <= 600; ++lag) {
    double product = 0.0;
    double energy = 1e-9;
    for (std::size_t i = from; i < from + count; ++i) {
      const auto song = static_cast<double>(deck.song()[i + static_cast<std::size_t>(lag)].left);
      product += song * static_cast<double>(deck.out[i].left);
      energy += song * song;
    }
    const double score = product / std::sqrt(energy);
    if (score > best) {
      best = score;
      best_lag = lag;
    }
  }
  return best_lag * 1000.0 / kSampleRate;
}

TEST_F(PitchSound, TheJoinsJumpByLessThanAMillisecond) {
  for (const float value : {5.0F, -20.0F}) {
    PitchDeck deck(noise(3 * 44100));
    deck.clear(0.0F);
    deck.steps(30);
    const std::size_t left = deck.out.size();
    deck.change(value);
    deck.steps(50);
    deck.change(0.0F);
    deck.steps(120);
    EXPECT_LT(std::abs(lag_ms(deck, left, 200)), 1.0);
    EXPECT_LT(std::abs(lag_ms(deck, left + 200, 200)), 1.0);
    std::size_t back = deck.out.size();
    while (deck.out[back - 1] == deck.song()[back - 1]) --back;
    EXPECT_LT(std::abs(lag_ms(deck, back - 256, 200)), 1.0);
    EXPECT_LT(std::abs(lag_ms(deck, back - 456, 200)), 1.0);
  }
}

TEST_F(PitchSound, ASilentSongStaysSilent) {
  for (const StereoFrame& frame : shifted(Sound(44100), -10.0F)) ASSERT_EQ(frame, StereoFrame{});
}

TEST_F(PitchSound, AShiftedSongBeginsAtFullLevelWithItsFirstFrame) {
  const Sound out = shifted(tones(44100, {441.0}), 10.0F);
  float peak = 0.0F;
  for (std::size_t i = 0; i < 100; ++i) peak = std::max(peak, std::abs(out[i].left));
  EXPECT_GT(peak, 0.49F);
}

}  // namespace
}  // namespace tandem

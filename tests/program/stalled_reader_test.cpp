// A deck whose reader does not get on: a disk that hangs.
#include <gtest/gtest.h>

#include "engine/read/deck_reader.h"
#include "engine/render/deck.h"
#include "faults/measured.h"
#include "program/signatures.h"
#include "support/bytes.h"
#include "support/temp_directory.h"
#include "support/wav_writer.h"

namespace tandem::test {
namespace {

class StalledReader : public testing::Test {
 protected:
  StalledReader() {
    write_file(directory_.file("a.wav"), wav_file(full_noise(1, 20 * kSampleRate, 0.2), Encoding::kInt16));
    reader_.open(1, directory_.file("a.wav"));
    deck_.begin_song({.generation = 1});
    deck_.unmute(1);
  }
  // Steps until the deck's song has ended, at most `limit`.
  int steps_to_end(int limit) {
    for (int step = 1; step <= limit; ++step)
      if (render(), deck_.take_end(0)) return step;
    return 0;
  }
  void render() {
    std::array<StereoFrame, kStepFrames> mix{};
    deck_.render(mix);
    silent_ = std::all_of(mix.begin(), mix.end(), [](const StereoFrame& f) { return f == StereoFrame{}; });
  }

  TempDirectory directory_;
  DeckReader reader_;
  Deck deck_{*reader_.feed()};
  bool silent_ = false;
};

TEST_F(StalledReader, ASongThatIsStillOpeningGoesOnForTenSeconds) {
  EXPECT_TRUE(deck_.goes_on());
  EXPECT_EQ(steps_to_end(2000), 1000);
  EXPECT_FALSE(deck_.goes_on());
  EXPECT_EQ(deck_.position().of(1), 0);
}

TEST_F(StalledReader, GivesSilenceAndItsPositionStands) {
  reader_.work();  // opens
  render();
  while (reader_.work()) {
  }
  const auto ready = static_cast<Frames>(reader_.ring().readable());
  EXPECT_GE(ready, 5 * kSampleRate);
  for (Frames steps = ready / kStepFrames + 1; steps > 0; --steps) render();
  const auto stands = deck_.position().of(1);
  for (int step = 0; step < 900; ++step) render();
  EXPECT_TRUE(silent_);
  EXPECT_TRUE(deck_.goes_on());
  EXPECT_EQ(deck_.position().of(1), stands);
}

TEST_F(StalledReader, HasEndedTenSecondsAfterTheSoundRanDry) {
  reader_.work();
  render();
  while (reader_.work()) {
  }
  const auto full_steps = static_cast<int>(reader_.ring().readable() / kStepFrames);
  const int steps = steps_to_end(5000);
  EXPECT_EQ(steps, full_steps + Deck::kStallSteps);
  record_fault("disk stalled for ever under a song", "the song has ended 10 s after the sound ran dry",
               "after " + std::to_string((steps - full_steps) * kStepMilliseconds) + " ms");
}

TEST_F(StalledReader, GoesOnWhereItStoodOnceSoundComes) {
  reader_.work();
  render();
  while (reader_.work()) {
  }
  for (int step = 0; step < 1200; ++step) render();
  ASSERT_TRUE(deck_.goes_on());
  const auto stands = deck_.position().of(1);
  while (reader_.work()) {
  }
  render();
  EXPECT_FALSE(silent_);
  EXPECT_EQ(deck_.position().of(1), *stands + kStepFrames);
}

}  // namespace
}  // namespace tandem::test

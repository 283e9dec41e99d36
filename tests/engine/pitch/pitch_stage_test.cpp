// Which frames the pitch stage gives, and when: counts, ends, a ring that runs dry, pitch shifters that come and go.
#include "engine/pitch/pitch_stage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "engine/pitch/pitch_deck.h"
#include "engine/pitch/pitch_signals.h"

namespace tandem {
namespace {

std::size_t count_retired(PitchStage& stage) {
  std::size_t count = 0;
  while (PitchShifter* shifter = stage.take_retired()) {
    delete shifter;
    ++count;
  }
  return count;
}

// How many of the last frames are the song's own, bit for bit.
std::size_t same_at_end(const PitchDeck& deck) {
  std::size_t same = 0;
  while (same < deck.out.size() && deck.out[deck.out.size() - 1 - same] == deck.song()[deck.out.size() - 1 - same]) {
    ++same;
  }
  return same;
}

TEST(PitchStage, AtValueZeroTheSongPassesBitForBit) {
  PitchDeck deck(noise(100000));
  deck.clear(0.0F);
  deck.run_to_end();
  EXPECT_EQ(deck.out, deck.song());
  EXPECT_TRUE(deck.at_end());
}

TEST(PitchStage, AtValueZeroTheRingIsReadNoFurtherThanGiven) {
  PitchDeck deck(noise(100000));
  deck.clear(0.0F);
  deck.step(100);
  EXPECT_EQ(deck.ring->position(), 100U);
}

TEST(PitchStage, GivesExactlyAsManyFramesAsTheSongAtEveryValue) {
  for (const std::size_t length :
       {std::size_t{0}, std::size_t{1}, std::size_t{440}, std::size_t{3000}, std::size_t{44100}}) {
    for (float value = -20.0F; value <= 20.0F; value += 4.0F) {
      PitchDeck deck(noise(length));
      deck.clear(value);
      deck.run_to_end();
      EXPECT_EQ(deck.out.size(), length) << value;
      EXPECT_EQ(deck.stage.given(), static_cast<Frames>(length));
      EXPECT_TRUE(deck.at_end());
    }
  }
}

TEST(PitchStage, GivesExactlyAsManyFramesHoweverTheValueMovesAndTheBlocksAreCut) {
  for (unsigned seed = 0; seed < 10; ++seed) {
    std::mt19937 random(seed);
    PitchDeck deck(noise(60000 + random() % 60000));
    deck.clear(static_cast<float>(random() % 3) * 5.0F);
    while (deck.step(1 + random() % 441) > 0) {
      if (random() % 8 == 0) deck.change(random() % 3 == 0 ? 0.0F : static_cast<float>(random() % 41) - 20.0F);
    }
    EXPECT_EQ(deck.out.size(), deck.song().size());
    EXPECT_TRUE(deck.at_end());
  }
}

TEST(PitchStage, ASongCanBeginAndEndAnywhereInTheRing) {
  PitchDeck deck(noise(50000));
  deck.clear(0.0F);
  deck.step(5000);
  deck.clear(10.0F);
  deck.out.clear();
  std::size_t came = 1;
  while (came > 0) {
    deck.out.resize(deck.out.size() + 441);
    came = deck.stage.process(*deck.ring, 20000, std::span(deck.out).last(441));
    deck.out.resize(deck.out.size() - 441 + came);
  }
  EXPECT_EQ(deck.out.size(), 15000U);
  EXPECT_TRUE(deck.stage.at_end(*deck.ring, 20000));
  EXPECT_LE(deck.ring->position(), 20000U);
}

TEST(PitchStage, BackAtZeroTheSongPassesBitForBitAgain) {
  for (const float value : {1.0F, -7.0F, 20.0F, -20.0F}) {
    PitchDeck deck(noise(4 * 44100));
    deck.clear(0.0F);
    deck.steps(20);
    deck.change(value);
    deck.steps(50);
    EXPECT_LT(same_at_end(deck), 10U) << "the pitch has not moved";
    deck.change(0.0F);
    deck.run_to_end();
    EXPECT_EQ(deck.out.size(), deck.song().size());
    // 20 + 50 steps went by before the value went back; it takes less than a second.
    EXPECT_GT(same_at_end(deck), deck.song().size() - 70 * 441 - 44100) << value;
  }
}

TEST(PitchStage, StaysAtZeroUntilTheRingHoldsEnough) {
  PitchDeck deck(noise(44100));
  deck.hold_back_at(2000);
  deck.clear(0.0F);
  deck.step();
  deck.change(10.0F);
  deck.steps(3);
  EXPECT_EQ(deck.out.size(), 4U * 441U);
  EXPECT_EQ(same_at_end(deck), deck.out.size());
  deck.hold_nothing_back();
  deck.run_to_end();
  EXPECT_EQ(deck.out.size(), deck.song().size());
  EXPECT_LT(same_at_end(deck), 441U);
}

TEST(PitchStage, ARingThatRunsDryGivesLessAndGoesOnWhereItWas) {
  PitchDeck whole(tones(44100, {441.0, 600.0}));
  whole.clear(10.0F);
  whole.run_to_end();
  PitchDeck stalled(whole.song());
  stalled.clear(10.0F);
  for (std::size_t held = 1000; held < whole.song().size(); held += 1700) {
    stalled.hold_back_at(held);
    stalled.run_to_end();
    EXPECT_LE(stalled.out.size(), held);
    EXPECT_FALSE(stalled.at_end());
  }
  stalled.hold_nothing_back();
  stalled.run_to_end();
  // The sound is the same but for rounding: the calls are cut otherwise.
  ASSERT_EQ(stalled.out.size(), whole.out.size());
  float difference = 0.0F;
  for (std::size_t i = 0; i < whole.out.size(); ++i) {
    difference = std::max(difference, std::abs(whole.out[i].left - stalled.out[i].left));
  }
  EXPECT_LT(difference, 1e-3F);
}

TEST(PitchStage, AValueThatIsClearedWaitsForTheRing) {
  PitchDeck deck(noise(44100));
  deck.hold_back_at(1000);
  deck.clear(10.0F);
  EXPECT_EQ(deck.step(), 0U);
  EXPECT_EQ(deck.ring->position(), 0U);
  deck.hold_nothing_back();
  EXPECT_EQ(deck.step(), 441U);
}

TEST(PitchStage, EveryEngineComesBack) {
  PitchDeck deck(noise(200000));
  PitchStage& stage = deck.stage;
  const auto fresh = [] { return new PitchShifter; };
  std::vector<StereoFrame> block(441);
  deck.clear(0.0F);
  deck.step();
  std::size_t given = 0;
  std::size_t returned = 0;
  for (int i = 0; i < 200; ++i) {
    stage.change(i % 7 == 0 ? 0.0F : static_cast<float>(i % 41) - 20.0F, fresh());
    ++given;
    if (i % 3 == 0) stage.process(*deck.ring, PitchStage::kEndUnknown, block);
    if (i % 50 == 49) {
      stage.clear(5.0F, fresh());
      ++given;
    }
    if (i % 5 == 0) returned += count_retired(stage);
  }
  stage.clear(0.0F, nullptr);
  returned += count_retired(stage);
  EXPECT_EQ(returned, given);
}

TEST(PitchStage, AnEngineThatIsNotNeededComesBackAtOnceOrWithTheNextBlock) {
  PitchDeck deck(noise(44100));
  deck.clear(10.0F);
  deck.step();
  deck.stage.change(12.0F, new PitchShifter);
  std::vector<StereoFrame> block(441);
  deck.stage.process(*deck.ring, PitchStage::kEndUnknown, block);
  EXPECT_EQ(count_retired(deck.stage), 1U);
}

TEST(PitchStage, GivenCountsFromTheLastClear) {
  PitchDeck deck(noise(44100));
  deck.clear(0.0F);
  deck.steps(3);
  EXPECT_EQ(deck.stage.given(), 3 * 441);
  deck.clear(4.0F);
  EXPECT_EQ(deck.stage.given(), 0);
  deck.steps(2);
  EXPECT_EQ(deck.stage.given(), 2 * 441);
}

}  // namespace
}  // namespace tandem

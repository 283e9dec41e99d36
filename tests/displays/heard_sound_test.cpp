#include "displays/core/heard_sound.h"

#include <gtest/gtest.h>

#include "displays/meters/block_levels.h"
#include "displays/tones.h"

namespace tandem {
namespace {

Sound ramp(std::size_t frames, float from) {
  Sound sound(frames);
  for (std::size_t i = 0; i < frames; ++i) sound[i] = {from + static_cast<float>(i), -from};
  return sound;
}

TEST(HeardSound, KeepsTheNewestFramesInOrder) {
  HeardSound heard(8);
  heard.feed(ramp(5, 1.0F));
  heard.feed(ramp(6, 6.0F));
  Sound newest(7);
  heard.copy_newest(newest);
  for (std::size_t i = 0; i < newest.size(); ++i) EXPECT_EQ(newest[i].left, 5.0F + static_cast<float>(i));
}

TEST(HeardSound, TakesMoreThanItKeeps) {
  HeardSound heard(8);
  heard.feed(ramp(100, 1.0F));
  Sound newest(8);
  heard.copy_newest(newest);
  EXPECT_EQ(newest.front().left, 93.0F);
  EXPECT_EQ(newest.back().left, 100.0F);
}

TEST(HeardSound, KnowsSilence) {
  HeardSound heard(8);
  EXPECT_TRUE(heard.silent(8));
  heard.feed(ramp(1, 1.0F));
  EXPECT_FALSE(heard.silent(1));
  heard.feed(Sound(3));
  EXPECT_TRUE(heard.silent(3));
  EXPECT_FALSE(heard.silent(4));
}

TEST(HeardSound, BecomesSilentAfterFiftyMillisecondsWithoutSound) {
  HeardSound heard(8);
  heard.feed(ramp(8, 1.0F));
  EXPECT_TRUE(heard.advance(0.5));
  EXPECT_FALSE(heard.advance(0.024));
  EXPECT_FALSE(heard.advance(0.024));
  EXPECT_FALSE(heard.silent(8));
  EXPECT_TRUE(heard.advance(0.004));
  EXPECT_TRUE(heard.silent(8));
  EXPECT_FALSE(heard.advance(1.0));
}

TEST(BlockLevels, FindsTheGreatestSampleOfEachTenMilliseconds) {
  Sound sound(2 * BlockLevels::kBlock + 100);
  sound[17] = {-0.5F, 0.25F};
  sound[440] = {0.125F, 0.0F};
  sound[441] = {0.0F, -0.75F};
  BlockLevels peaks;
  peaks.feed(std::span(sound).first(500));
  peaks.feed(std::span(sound).subspan(500));
  const auto blocks = peaks.advance(0.02);
  ASSERT_EQ(blocks.size(), 2U);
  EXPECT_EQ(blocks[0].greatest, (SoundFrame{0.5F, 0.25F}));
  EXPECT_EQ(blocks[1].greatest, (SoundFrame{0.0F, 0.75F}));
  EXPECT_TRUE(peaks.advance(0.0).empty());
}

TEST(BlockLevels, TheAverageOfASineIsItsAmplitude) {
  for (const double hz : {50.0, 100.0, 1000.0, 12000.0}) {
    BlockLevels levels;
    levels.feed(sine(BlockLevels::kBlock, hz, 0.5));
    EXPECT_NEAR(levels.advance(0.01)[0].average.left, 0.5, 0.005) << hz;
  }
  BlockLevels levels;
  levels.feed(both(BlockLevels::kBlock, [](double t) { return t < 0.005 ? 1.0 : 0.0; }));
  EXPECT_NEAR(levels.advance(0.01)[0].average.right, 0.785, 0.005) << "half of pi / 2, though the peak is 1";
}

TEST(BlockLevels, KeepsTheNewestOfALongTime) {
  Sound sound(100 * BlockLevels::kBlock);
  sound.back() = {1.0F, 1.0F};
  BlockLevels peaks;
  peaks.feed(sound);
  auto blocks = peaks.advance(1.0);
  EXPECT_EQ(blocks.size(), 32U);
  EXPECT_EQ(blocks.back().greatest.left, 1.0F);
  for (int i = 0; i < 100; ++i) peaks.feed(std::span(sound).last(BlockLevels::kBlock));
  blocks = peaks.advance(1.0);
  EXPECT_EQ(blocks.size(), 32U);
  EXPECT_EQ(blocks.front().greatest.left, 1.0F);
}

TEST(BlockLevels, GivesOneSilentBlockWhenSoundIsHeldBack) {
  const Sound sound = sine(600, 1000.0);
  BlockLevels peaks;
  peaks.feed(sound);
  EXPECT_EQ(peaks.advance(0.01).size(), 1U);
  EXPECT_TRUE(peaks.advance(0.049).empty());
  EXPECT_FALSE(peaks.silent());
  const auto blocks = peaks.advance(0.002);
  ASSERT_EQ(blocks.size(), 1U);
  EXPECT_EQ(blocks[0], BlockLevel{});
  EXPECT_TRUE(peaks.silent());
}

}  // namespace
}  // namespace tandem

#include "engine/pitch/time_stretch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "engine/pitch/pitch_signals.h"

namespace tandem {
namespace {

using Decision = TimeStretch::Decision;

class TimeStretchTest : public testing::Test {
 protected:
  void load(std::span<const StereoFrame> sound) { ring->write(sound); }
  SongInput song(std::uint64_t end = ~std::uint64_t{0}) const { return {*ring, 0, end}; }
  void begin(Frames at) {
    std::vector<StereoFrame> skipped(static_cast<std::size_t>(at));
    ring->read(skipped);
    stretch->begin(song(), at);
  }
  static ReadHead head_at(Frames time, double lead, double ratio) {
    return {time, static_cast<double>(time) + lead, ratio};
  }

  std::unique_ptr<DeckRing> ring = std::make_unique<DeckRing>();
  std::unique_ptr<TimeStretch> stretch = std::make_unique<TimeStretch>();
};

TEST_F(TimeStretchTest, HoldsTheSongFromBeforeItsFirstFrame) {
  const auto sound = noise(20000);
  load(sound);
  begin(5000);
  ASSERT_TRUE(stretch->fill(song(), 9000.0));
  for (Frames at = 4000; at < 9000; ++at) ASSERT_EQ(stretch->song().frame(at), sound[static_cast<std::size_t>(at)]);
}

TEST_F(TimeStretchTest, BeforeTheSongsFirstFrameIsSilence) {
  load(noise(20000));
  begin(0);
  EXPECT_EQ(stretch->song().frame(-50), StereoFrame{});
}

TEST_F(TimeStretchTest, AHeadInTimeStays) {
  load(tones(20000, {441.0}));
  begin(5000);
  ReadHead head = head_at(5000, 0.0, 1.1);
  EXPECT_EQ(stretch->keep_in_time(song(), head), Decision::kStay);
  EXPECT_EQ(head.position, 5000.0);
  EXPECT_EQ(stretch->left(5000), TimeStretch::kEvery);
}

TEST_F(TimeStretchTest, AHeadThatLeadsIsTakenBackByWholePeriods) {
  load(tones(20000, {441.0}));
  begin(5000);
  ReadHead head = head_at(5000, 310.0, 1.1);
  ASSERT_EQ(stretch->keep_in_time(song(), head), Decision::kSpliced);
  EXPECT_LT(std::abs(head.lead()), 310.0);
  EXPECT_NEAR(std::remainder(5310.0 - head.position, 100.0), 0.0, 0.05);
  EXPECT_TRUE(stretch->fade().active());
  EXPECT_DOUBLE_EQ(stretch->fade().jump(), 5310.0 - head.position);
  EXPECT_EQ(stretch->left(5000), SplicePlan::kLongestFade);
}

TEST_F(TimeStretchTest, ADryRingChangesNothingAndItCanBeTriedAgain) {
  const auto sound = tones(20000, {441.0});
  load(std::span(sound).first(6000));
  begin(5000);
  ReadHead head = head_at(5000, 310.0, 1.1);
  EXPECT_EQ(stretch->keep_in_time(song(), head), Decision::kDry);
  EXPECT_EQ(head.position, 5310.0);
  EXPECT_EQ(stretch->left(5000), 0);
  load(std::span(sound).subspan(6000));
  EXPECT_EQ(stretch->keep_in_time(song(), head), Decision::kSpliced);
}

TEST_F(TimeStretchTest, NoSpliceStandsInAnAttack) {
  auto sound = tones(20000, {441.0});
  sound[5500].left += 0.5F;
  load(sound);
  begin(5000);
  ReadHead head = head_at(5000, 310.0, 1.02);
  EXPECT_EQ(stretch->keep_in_time(song(), head), Decision::kStay);
}

TEST_F(TimeStretchTest, NoSpliceStandsAtTheSongsEnd) {
  load(tones(6000, {441.0}));
  begin(5000);
  ReadHead head = head_at(5600, 310.0, 1.02);
  EXPECT_EQ(stretch->keep_in_time(song(6000), head), Decision::kStay);
}

TEST_F(TimeStretchTest, AReadingThatLeadsIsTakenBackBeforeTheSongsEnd) {
  load(tones(6000, {441.0}));
  begin(5000);
  ReadHead head = head_at(5000, 310.0, 1.02);
  EXPECT_EQ(stretch->keep_in_time(song(6000), head), Decision::kSpliced);
  EXPECT_LT(head.position + static_cast<double>(stretch->left(5000)), 6000.0);
  EXPECT_LT(std::abs(head.lead_at(6000.0)), 177.0);
}

TEST_F(TimeStretchTest, TheWayBackLandsNearTheSongsTime) {
  load(tones(20000, {441.0}));
  begin(5000);
  ReadHead head = head_at(5000, 230.0, 1.0);
  ASSERT_EQ(stretch->return_to_unison(song(), head), Decision::kSpliced);
  EXPECT_NEAR(head.lead(), 30.0, 0.1);
}

TEST_F(TimeStretchTest, TheWayBackWaitsForAttacksToPass) {
  auto sound = tones(60000, {441.0});
  for (std::size_t at = 100; at < sound.size(); at += 950) sound[at].left += 0.5F;
  load(sound);
  begin(4600);
  ReadHead head = head_at(4600, 230.0, 1.0);
  Frames waited = 0;
  while (stretch->return_to_unison(song(), head) == Decision::kStay && waited < 44100) {
    head.time += TimeStretch::kEvery;
    head.position += static_cast<double>(TimeStretch::kEvery);
    waited += TimeStretch::kEvery;
    stretch->forget(head);
  }
  EXPECT_GT(waited, 0);
  EXPECT_LT(waited, 950);
}

}  // namespace
}  // namespace tandem

#include "engine/pitch/song_input.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <vector>

namespace tandem {
namespace {

constexpr std::uint64_t kUnknown = std::numeric_limits<std::uint64_t>::max();

// A ring in which the song starts at frame 100; its frames are 1, 2, 3...
class SongInputTest : public testing::Test {
 protected:
  void SetUp() override {
    ring->write(std::vector<StereoFrame>(100));
    ring->skip_to(100);
  }
  void write(std::size_t count) {
    std::vector<StereoFrame> frames(count);
    for (StereoFrame& frame : frames) frame.left = static_cast<float>(++written_);
    ring->write(frames);
  }
  SongInput song(std::uint64_t end = kUnknown) const { return {*ring, 100, end}; }

  std::unique_ptr<DeckRing> ring = std::make_unique<DeckRing>();

 private:
  int written_ = 0;
};

TEST_F(SongInputTest, FramesAreCountedFromTheSongsStart) {
  write(50);
  EXPECT_EQ(song().position(), 0);
  std::vector<StereoFrame> some(20);
  ring->read(some);
  EXPECT_EQ(song().position(), 20);
  EXPECT_EQ(song().readable(), 30);
}

TEST_F(SongInputTest, TheLengthIsBoundlessWhileTheEndIsUnknown) {
  EXPECT_EQ(song().length(), std::numeric_limits<Frames>::max());
  EXPECT_EQ(song(350).length(), 250);
  EXPECT_EQ(song(50).length(), 0);
}

TEST_F(SongInputTest, NothingIsReadableAfterTheSongsEnd) {
  write(50);
  EXPECT_EQ(song(130).readable(), 30);
}

TEST_F(SongInputTest, TheRestOfASongIsEnoughAhead) {
  write(50);
  EXPECT_TRUE(song().has_ahead(50));
  EXPECT_FALSE(song().has_ahead(51));
  EXPECT_TRUE(song(150).has_ahead(51));
  EXPECT_FALSE(song(151).has_ahead(52));
}

TEST_F(SongInputTest, FillingStopsWhereTheRingRunsDryAndGoesOnLater) {
  SlidingWindow window(2000);
  write(500);
  EXPECT_FALSE(song().fill(window, 600));
  EXPECT_EQ(window.end(), 500);
  write(500);
  EXPECT_TRUE(song().fill(window, 600));
  EXPECT_EQ(window.end(), 600);
  for (Frames at = 0; at < 600; ++at) ASSERT_EQ(window.frame(at).left, static_cast<float>(at + 1));
}

TEST_F(SongInputTest, SilenceFollowsTheSong) {
  SlidingWindow window(2000);
  write(500);
  EXPECT_TRUE(song(100 + 450).fill(window, 1000));
  EXPECT_EQ(window.end(), 1000);
  EXPECT_EQ(window.frame(449).left, 450.0F);
  for (Frames at = 450; at < 1000; ++at) ASSERT_EQ(window.frame(at), StereoFrame{});
}

TEST_F(SongInputTest, GoesBackToAFrameAndNeverForward) {
  write(500);
  std::vector<StereoFrame> some(300);
  ring->read(some);
  song().go_back_to(120);
  EXPECT_EQ(song().position(), 120);
  song().go_back_to(400);
  EXPECT_EQ(song().position(), 120);
}

}  // namespace
}  // namespace tandem

#include "engine/read/deck_ring.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "engine/read/numbered_frames.h"

namespace tandem {
namespace {

using test::numbered;
using test::numbers;

class DeckRingTest : public testing::Test {
 protected:
  void write(std::size_t count) { ring->write(numbers(ring->written(), count)); }
  std::vector<StereoFrame> read(std::size_t count) {
    std::vector<StereoFrame> frames(count);
    frames.resize(ring->read(frames));
    return frames;
  }
  std::unique_ptr<DeckRing> ring = std::make_unique<DeckRing>();
};

TEST_F(DeckRingTest, IsEmptyAtFirst) {
  EXPECT_EQ(ring->readable(), 0U);
  EXPECT_EQ(ring->writable(), DeckRing::kCapacity);
  EXPECT_TRUE(read(10).empty());
}

TEST_F(DeckRingTest, GivesWhatWasWrittenAndNoMore) {
  write(100);
  EXPECT_EQ(read(60), numbers(0, 60));
  EXPECT_EQ(read(60), numbers(60, 40));
  EXPECT_EQ(ring->position(), 100U);
}

TEST_F(DeckRingTest, PeekLeavesTheFrames) {
  write(10);
  std::vector<StereoFrame> seen(20);
  EXPECT_EQ(ring->peek(seen), 10U);
  EXPECT_EQ(ring->position(), 0U);
  EXPECT_EQ(read(10), numbers(0, 10));
}

TEST_F(DeckRingTest, GoesAroundItsEnd) {
  for (std::uint64_t at = 0; at < 3 * DeckRing::kCapacity; at += 50000) {
    write(50000);
    ASSERT_EQ(read(50000), numbers(at, 50000));
  }
}

TEST_F(DeckRingTest, KeepsTheHistoryFromTheWriter) {
  write(DeckRing::kCapacity);
  EXPECT_EQ(ring->writable(), 0U);
  read(DeckRing::kHistory);
  EXPECT_EQ(ring->writable(), 0U);
  read(1000);
  EXPECT_EQ(ring->writable(), 1000U);
}

TEST_F(DeckRingTest, GoesBackByNoMoreThanItsHistory) {
  write(100000);
  read(50000);
  EXPECT_EQ(ring->unread(100), 100U);
  EXPECT_EQ(read(50), numbers(49900, 50));
  EXPECT_EQ(ring->unread(DeckRing::kHistory * 2), DeckRing::kHistory - 50);
  EXPECT_EQ(ring->position(), 50000 - DeckRing::kHistory);
  EXPECT_EQ(ring->unread(1), 0U);
  EXPECT_EQ(read(DeckRing::kHistory + 5), numbers(50000 - DeckRing::kHistory, DeckRing::kHistory + 5));
}

TEST_F(DeckRingTest, DoesNotGoBackBeyondItsBeginning) {
  write(100);
  read(30);
  EXPECT_EQ(ring->unread(1000), 30U);
  EXPECT_EQ(ring->position(), 0U);
}

TEST_F(DeckRingTest, DoesNotGoBackBeyondASkip) {
  write(100000);
  read(1000);
  ring->skip_to(60000);
  EXPECT_EQ(ring->unread(10), 0U);
  EXPECT_EQ(ring->writable(), DeckRing::kCapacity - 40000);
  EXPECT_EQ(read(20), numbers(60000, 20));
  EXPECT_EQ(ring->unread(100), 20U);
}

TEST_F(DeckRingTest, GoingBackGivesTheWriterNoLessRoom) {
  write(DeckRing::kCapacity);
  read(100000);
  const std::size_t room = ring->writable();
  ring->unread(DeckRing::kHistory);
  EXPECT_EQ(ring->writable(), room);
}

}  // namespace
}  // namespace tandem

#include "engine/pitch/sliding_window.h"

#include <gtest/gtest.h>

namespace tandem {
namespace {

// Frames whose left sample is their number, the right one its negative.
std::vector<StereoFrame> numbered(Frames from, std::size_t count) {
  std::vector<StereoFrame> frames(count);
  for (StereoFrame& frame : frames) {
    frame = {static_cast<float>(from), -static_cast<float>(from)};
    ++from;
  }
  return frames;
}

void expect_numbered(const SlidingWindow& window, Frames from) {
  for (Frames at = from; at < window.end(); ++at) {
    ASSERT_EQ(window.frame(at), (StereoFrame{static_cast<float>(at), -static_cast<float>(at)}));
  }
}

TEST(SlidingWindow, StartsEmptyAtTheFrameItIsRestartedAt) {
  SlidingWindow window(100);
  window.add(numbered(0, 10));
  window.restart(500);
  EXPECT_EQ(window.begin(), 500);
  EXPECT_EQ(window.end(), 500);
}

TEST(SlidingWindow, FramesKeepTheirNumbersWhenEarlierOnesAreDropped) {
  SlidingWindow window(100);
  window.restart(1000);
  for (Frames at = 1000; at < 2000; at += 10) {
    window.add(numbered(at, 10));
    window.forget(at - 40);
    expect_numbered(window, std::max<Frames>(1000, at - 40));
  }
  EXPECT_EQ(window.end(), 2000);
}

TEST(SlidingWindow, NothingIsDroppedBeforeRoomIsNeeded) {
  SlidingWindow window(100);
  window.add(numbered(0, 50));
  window.forget(40);
  EXPECT_EQ(window.begin(), 0);
  window.add(numbered(50, 60));
  EXPECT_EQ(window.begin(), 40);
  expect_numbered(window, 40);
}

TEST(SlidingWindow, WhatWasForgottenIsNotTakenBack) {
  SlidingWindow window(100);
  window.add(numbered(0, 80));
  window.forget(60);
  window.forget(10);
  window.add(numbered(80, 70));
  EXPECT_EQ(window.begin(), 60);
  EXPECT_EQ(window.end(), 150);
}

TEST(SlidingWindow, ForgettingMoreThanThereIsForgetsAll) {
  SlidingWindow window(20);
  window.add(numbered(0, 10));
  window.forget(1000);
  window.add(numbered(10, 20));
  EXPECT_EQ(window.begin(), 10);
  expect_numbered(window, 10);
}

TEST(SlidingWindow, SilenceIsAddedAsFrames) {
  SlidingWindow window(20);
  window.add(numbered(0, 2));
  window.add_silence(3);
  EXPECT_EQ(window.end(), 5);
  for (Frames at = 2; at < 5; ++at) EXPECT_EQ(window.frame(at), StereoFrame{});
}

}  // namespace
}  // namespace tandem

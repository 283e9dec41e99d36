#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <thread>
#include <vector>

#include "engine/device/display_feed.h"

namespace tandem {
namespace {

StereoFrame shown_frame(std::uint64_t number) {
  return {static_cast<float>(number & 0x7FFF), static_cast<float>((number >> 15) & 0x7FFF)};
}

// The writer goes round the feed and overtakes the reader again and again.
TEST(DisplayFeedThreads, WhatIsReadIsTheSoundBeforeThatFrameOrNothing) {
  constexpr std::uint64_t kPictures = 400;
  constexpr std::size_t kShown = 2048;
  const auto feed = std::make_unique<DisplayFeed>();
  std::atomic<bool> looking{true};
  std::thread renderer([&] {
    std::vector<StereoFrame> step(441);
    while (looking.load()) {
      std::uint64_t number = feed->written();
      for (StereoFrame& frame : step) frame = shown_frame(number++);
      feed->write(step);
    }
  });
  std::vector<StereoFrame> picture(kShown);
  std::uint64_t wrong = 0;
  std::uint64_t pictures = 0;
  for (std::uint64_t look = 0; pictures < kPictures || feed->written() < 3 * DisplayFeed::kCapacity; ++look) {
    // The newest frames, and now and then the oldest that are kept, which are just being overwritten.
    const std::uint64_t newest = feed->written();
    const std::uint64_t back = look % 4 == 3 && newest > DisplayFeed::kCapacity ? DisplayFeed::kCapacity - kShown : 0;
    if (!feed->read(newest - back, picture)) continue;
    ++pictures;
    for (std::size_t i = 0; i < kShown; ++i) wrong += picture[i] == shown_frame(newest - back - kShown + i) ? 0U : 1U;
  }
  looking.store(false);
  renderer.join();
  EXPECT_EQ(wrong, 0U);
}

}  // namespace
}  // namespace tandem

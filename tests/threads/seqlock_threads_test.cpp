#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <thread>

#include "engine/core/seqlock.h"
#include "platform/output/playback_clock.h"

namespace tandem {
namespace {

struct Value {
  std::uint64_t first = 0;
  std::uint64_t second = 0;
  std::uint64_t third = 0;
};

TEST(SeqLockThreads, WhatIsReadWasPublishedWholeAndIsNeverOlderThanBefore) {
  constexpr std::uint64_t kValues = 200'000;
  SeqLock<Value> lock;
  std::thread publisher([&lock] {
    for (std::uint64_t n = 1; n <= kValues; ++n) lock.publish({n, 2 * n, 3 * n});
  });
  std::uint64_t torn = 0;
  std::uint64_t older = 0;
  std::uint64_t last = 0;
  while (last < kValues) {
    Value value;
    if (!lock.try_read(value)) {
      std::this_thread::yield();
      continue;
    }
    torn += value.second == 2 * value.first && value.third == 3 * value.first ? 0U : 1U;
    older += value.first < last ? 1U : 0U;
    last = value.first;
  }
  publisher.join();
  EXPECT_EQ(torn, 0U);
  EXPECT_EQ(older, 0U);
}

TEST(PlaybackClockThreads, NeverGoesBackAndNeverPassesWhatWasPublished) {
  constexpr std::uint64_t kReports = 100'000;
  PlaybackClock clock;
  std::atomic<std::uint64_t> reported{0};
  std::thread device([&] {
    for (std::uint64_t n = 1; n <= kReports; ++n) {
      reported.store(n);
      clock.publish({n, 0, n});
    }
  });
  std::uint64_t last = 0;
  std::uint64_t wrong = 0;
  while (last < kReports) {
    const std::uint64_t played = clock.frames_played(kNanosecondsPerSecond);
    wrong += played < last || played > reported.load() ? 1U : 0U;
    last = played;
  }
  device.join();
  EXPECT_EQ(wrong, 0U);
}

}  // namespace
}  // namespace tandem

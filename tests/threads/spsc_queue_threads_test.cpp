#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <thread>

#include "engine/core/spsc_queue.h"

namespace tandem {
namespace {

struct Item {  // larger than a word, so that it could be torn
  std::uint64_t number = 0;
  std::array<std::uint64_t, 3> copies{};
};

TEST(SpscQueueThreads, EveryItemArrivesWholeAndInOrder) {
  constexpr std::uint64_t kItems = 200'000;
  SpscQueue<Item, 16> queue;
  std::thread producer([&queue] {
    for (std::uint64_t n = 1; n <= kItems; ++n)
      while (!queue.push({n, {n, n, n}})) std::this_thread::yield();
  });
  std::uint64_t wrong = 0;
  for (std::uint64_t n = 1; n <= kItems; ++n) {
    Item item;
    while (!queue.pop(item)) std::this_thread::yield();
    wrong += item.number == n && item.copies == std::array{n, n, n} ? 0U : 1U;
  }
  producer.join();
  EXPECT_EQ(wrong, 0U);
  EXPECT_TRUE(queue.empty());
}

}  // namespace
}  // namespace tandem

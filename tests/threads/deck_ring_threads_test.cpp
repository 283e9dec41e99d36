#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <thread>
#include <vector>

#include "engine/read/deck_ring.h"
#include "engine/read/numbered_frames.h"

namespace tandem {
namespace {

using test::numbered;
using test::numbers;

// The writer fills whatever room there is while the reader reads, goes back and skips: no frame may ever be another
// than its number says.
TEST(DeckRingThreads, NoFrameIsTornWhileBothWork) {
  constexpr std::uint64_t kTotal = std::uint64_t{40} * DeckRing::kCapacity;
  const auto ring = std::make_unique<DeckRing>();
  std::thread writer([&ring] {
    std::mt19937 random(7);
    while (ring->written() < kTotal) {
      const std::size_t most = std::min<std::uint64_t>(ring->writable(), kTotal - ring->written());
      if (most == 0) {
        std::this_thread::yield();
        continue;
      }
      ring->write(numbers(ring->written(), std::min<std::size_t>(most, 1 + random() % 20000)));
    }
  });
  std::mt19937 random(3);
  std::vector<StereoFrame> block(4000);
  std::uint64_t wrong = 0;
  while (ring->position() < kTotal) {
    const std::uint64_t from = ring->position();
    const std::size_t count = ring->read(std::span(block).first(1 + random() % block.size()));
    for (std::size_t i = 0; i < count; ++i) wrong += block[i] == numbered(from + i) ? 0U : 1U;
    if (count == 0) std::this_thread::yield();
    const unsigned chance = random() % 64;
    if (chance < 8) ring->unread(random() % 6000);
    if (chance == 8) ring->skip_to(ring->position() + std::min<std::size_t>(ring->readable(), random() % 5000));
  }
  writer.join();
  EXPECT_EQ(wrong, 0U);
}

}  // namespace
}  // namespace tandem

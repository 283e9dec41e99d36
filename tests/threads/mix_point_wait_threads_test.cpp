#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <thread>

#include "engine/render/mix_point_wait.h"

namespace tandem {
namespace {

constexpr std::int64_t kPatience = 1'000'000'000;

// Of the mix points that the UI thread sets, none is reached but the last. One that is read half old and half new would
// be: this song's generation with the other's frame.
TEST(MixPointWaitThreads, APointThatIsJustBeingChangedIsNotWaitedFor) {
  MixPointWait wait;
  std::array<DeckPosition, 2> positions;
  positions[0].put(1, 1000);
  std::atomic<bool> setting{true};
  std::thread panel([&] {
    for (int i = 0; i < 100'000; ++i) {
      wait.put(0, 1, 2000 + i);  // this song, not there yet
      wait.put(0, 2, 10);        // another song
    }
    setting.store(false);
    wait.put(0, 1, 1000);
  });
  std::uint64_t wrong = 0;
  while (setting.load()) {
    const bool holds = wait.must_wait({&positions[0], &positions[1]}, 0, kPatience);
    wrong += holds && setting.load() ? 1U : 0U;
  }
  panel.join();
  EXPECT_EQ(wrong, 0U);
  EXPECT_TRUE(wait.must_wait({&positions[0], &positions[1]}, 0, kPatience));
}

}  // namespace
}  // namespace tandem

// What the file dialog leaves in memory when it has closed.

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <fstream>

#include "app/real_player.h"
#include "settings/settings_file.h"

namespace tandem::test {
namespace {

constexpr int kLimit = 3000;  // KiB

// KiB that are the program's alone: the pages of libraries, which it shares with every program and which the system
// drops when it is short, do not count.
int private_memory(const RealPlayer& player) {
  std::ifstream map("/proc/" + std::to_string(player.pid()) + "/smaps_rollup");
  int size = 0;
  for (std::string word; map >> word;)
    if (word == "Private_Dirty:") map >> size;
  return size;
}

// Once it has not changed for two seconds: what a program makes when it begins is late on a busy machine.
int settled_memory(const RealPlayer& player) {
  using Clock = std::chrono::steady_clock;
  constexpr int kSame = 16;  // KiB
  int settled = 0;
  Clock::time_point since = Clock::now();
  wait_until(
      [&] {
        const int now = private_memory(player);
        if (std::abs(now - settled) > kSame) {
          settled = now;
          since = Clock::now();
        }
        return Clock::now() - since > std::chrono::seconds(2);
      },
      std::chrono::seconds(30));
  return settled;
}

// Once what is made as late as that is there, nothing is added by another opening.
TEST(DialogMemory, IsGivenBackWhenItCloses) {
  Desktop desktop;
  RealPlayer player(desktop, factory_settings());
  ASSERT_TRUE(player.show_up()) << player.errors();
  const int before = settled_memory(player);
  ASSERT_GT(before, 0);
  for (int opening = 1; opening <= 6; ++opening) {
    player.key("ctrl+o");
    ASSERT_TRUE(player.dialog_shows_up());
    player.dialog_key("Escape");
    ASSERT_TRUE(player.dialog_goes_away());
    EXPECT_TRUE(wait_until([&] { return private_memory(player) < before + kLimit; }))
        << private_memory(player) - before << " KiB after " << opening;
  }
  RecordProperty("kibibytes_after_6", private_memory(player) - before);
}

}  // namespace
}  // namespace tandem::test

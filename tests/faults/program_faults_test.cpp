// The program itself, killed, doubled, and without a place for its settings: TP.inf is the old or the new one, whole.
#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

#include "faults/measured.h"
#include "faults/offscreen_player.h"
#include "settings/settings_file.h"

namespace tandem::test {
namespace {

namespace fs = std::filesystem;

// The same settings, but with a line end that the program reads and does not write: so the two differ.
std::string old_settings() {
  std::string text = factory_settings();
  std::erase(text, '\r');
  return text;
}

std::string settings_with_volume(const std::string& volume) {
  std::string text = factory_settings();
  return text.replace(text.find("32768"), 5, volume);
}

using Clock = std::chrono::steady_clock;

// How long closing takes here and now.
Clock::duration close_time(const PlayerFolder& folder) {
  OffscreenPlayer player(folder);
  EXPECT_TRUE(player.started());
  const auto asked = Clock::now();
  player.send(SIGTERM);
  EXPECT_EQ(player.exit_status(), 0) << player.errors();
  return Clock::now() - asked;
}

// What closing makes of the old ones.
std::string new_settings() {
  const PlayerFolder folder(old_settings());
  close_time(folder);
  return folder.settings();
}

int kills() {
  const char* setting = std::getenv("TANDEM_KILLS");
  return setting == nullptr ? 40 : std::max(std::atoi(setting), 1);
}

class KilledPlayer : public testing::Test {
 protected:
  void SetUp() override {
    fresh = new_settings();
    ASSERT_NE(fresh, old_settings());
  }
  void wait_up_to(int microseconds) {
    std::uniform_int_distribution<int> moment(0, microseconds);
    std::this_thread::sleep_for(std::chrono::microseconds(moment(random)));
  }
  // Kills and judges what lies there, and starts the next one.
  void kill(OffscreenPlayer& player) {
    player.send(SIGKILL);
    player.exit_status();
    const std::string left = folder.settings();
    if (left == old_settings()) {
      ++old;
    } else if (left == fresh) {
      ++renewed;
    } else {
      ++mixed;
    }
    left_over += folder.strays();
    OffscreenPlayer next(folder);
    const bool good = next.started();
    next.send(SIGTERM);
    if (!good || next.exit_status() != 0 || folder.settings() != fresh) ++lost;
    EXPECT_EQ(folder.strays(), 0);
    folder.write_settings(old_settings());
  }
  void judge(const std::string& fault) const {
    EXPECT_EQ(mixed, 0);
    EXPECT_EQ(lost, 0);
    EXPECT_EQ(old + renewed, kills());
    record_fault(fault + ", " + std::to_string(kills()) + " times",
                 "settings old or new, next start succeeds, nothing left over after it",
                 std::to_string(old) + " old, " + std::to_string(renewed) + " new, " + std::to_string(mixed) +
                     " mixed, " + std::to_string(lost) + " starts failed, " + std::to_string(left_over) +
                     " temporary files left by kills, " + std::to_string(folder.strays()) + " after the next close");
  }

  PlayerFolder folder{old_settings()};
  std::string fresh;
  std::mt19937 random{20240229};
  int old = 0;
  int renewed = 0;
  int mixed = 0;
  int lost = 0;
  int left_over = 0;
};

TEST_F(KilledPlayer, LeavesWholeSettingsAtRandomInstants) {
  for (int i = 0; i < kills(); ++i) {
    OffscreenPlayer player(folder);
    wait_up_to(150'000);
    kill(player);
  }
  EXPECT_EQ(old, kills());  // nothing is written before the close
  judge("kill -9 at a random instant");
}

// At instants spread over half as long again as closing takes: the first kills come before the writing, the last after.
TEST_F(KilledPlayer, LeavesWholeSettingsWhileItCloses) {
  const auto whole = close_time(folder) * 3 / 2;
  folder.write_settings(old_settings());
  for (int i = 0; i < kills(); ++i) {
    OffscreenPlayer player(folder);
    ASSERT_TRUE(player.started());
    player.send(SIGTERM);
    std::this_thread::sleep_for(whole * i / kills());
    kill(player);
  }
  EXPECT_GT(old, 0);
  EXPECT_GT(renewed, 0);
  judge("kill -9 during close");
}

// As soon as the temporary file is there, which becomes TP.inf once it is on the disk.
TEST_F(KilledPlayer, LeavesWholeSettingsWhileItWrites) {
  for (int i = 0; i < kills(); ++i) {
    OffscreenPlayer player(folder);
    ASSERT_TRUE(player.started());
    player.send(SIGTERM);
    const std::string written = folder.file(".tandem-" + std::to_string(player.pid()) + ".new");
    const auto patience = Clock::now() + std::chrono::seconds(10);
    while (!fs::exists(written) && folder.settings() != fresh && Clock::now() < patience) std::this_thread::yield();
    kill(player);
  }
  EXPECT_GT(left_over, 0);
  judge("kill -9 in the moment of saving");
}

// What a kill between writing and renaming leaves does not stand in the way of a player with the same number.
TEST_F(KilledPlayer, LeftoversDoNotMatter) {
  for (int number = 1; number < 50; ++number)
    std::ofstream(folder.file(".tandem-" + std::to_string(number) + ".new")) << "half a";
  OffscreenPlayer player(folder);
  std::ofstream(folder.file(".tandem-" + std::to_string(player.pid()) + ".new")) << "half a";
  ASSERT_TRUE(player.started());
  player.send(SIGTERM);
  EXPECT_EQ(player.exit_status(), 0);
  EXPECT_EQ(folder.settings(), fresh);
  EXPECT_EQ(folder.strays(), 0);
}

TEST(TwoPlayers, FromOneFolderDoNotDisturbEachOther) {
  const std::string fresh = new_settings();
  int good = 0;
  constexpr int kTimes = 10;
  for (int i = 0; i < kTimes; ++i) {
    const PlayerFolder folder(old_settings());
    OffscreenPlayer one(folder);
    OffscreenPlayer other(folder);
    ASSERT_TRUE(one.started() && other.started());
    one.send(SIGTERM);
    other.send(SIGTERM);
    const bool ended = one.exit_status() == 0 && other.exit_status() == 0;
    if (ended && folder.settings() == fresh && folder.strays() == 0) ++good;
  }
  EXPECT_EQ(good, kTimes);
  record_fault("two copies started and closed at once, " + std::to_string(kTimes) + " times",
               "both end well, settings whole", std::to_string(good) + " times so");
}

// Each keeps what it has read at its start, and saves it: what the last one saves stays.
TEST(TwoPlayers, FromOneFolderKeepTheSettingsOfTheOneThatIsClosedLast) {
  const std::string quiet = settings_with_volume("100");
  const std::string loud = settings_with_volume("20000");
  int good = 0;
  for (const bool quiet_is_last : {false, true}) {
    const PlayerFolder folder(quiet);
    OffscreenPlayer quiet_player(folder);
    ASSERT_TRUE(quiet_player.started());
    folder.write_settings(loud);
    OffscreenPlayer loud_player(folder);
    ASSERT_TRUE(loud_player.started());
    OffscreenPlayer* players[] = {&quiet_player, &loud_player};
    if (quiet_is_last) std::swap(players[0], players[1]);
    for (OffscreenPlayer* player : players) {
      player->send(SIGTERM);
      EXPECT_EQ(player->exit_status(), 0);
    }
    if (folder.settings() == (quiet_is_last ? quiet : loud)) ++good;
  }
  EXPECT_EQ(good, 2);
  record_fault("two copies with different settings closed one after the other, both ways round",
               "TP.inf holds what the last one had", std::to_string(good) + " of 2 times so");
}

class NoPlace : public testing::Test {
 protected:
  void close_and_judge(OffscreenPlayer& player, const std::string& fault) {
    ASSERT_TRUE(player.started());
    player.send(SIGTERM);
    EXPECT_EQ(player.exit_status(), 1);
    EXPECT_NE(player.errors().find("tandem: "), std::string::npos);
    EXPECT_NE(player.errors().find(folder.file("TP.inf") + "\n"), std::string::npos) << player.errors();
    EXPECT_EQ(folder.settings(), old_settings());
    EXPECT_EQ(folder.strays(), 0);
    record_fault(fault, "old settings whole, error report, status 1",
                 std::string(folder.settings() == old_settings() ? "whole" : "NOT WHOLE") + ", status " +
                     std::to_string(player.exit_status()));
  }
  PlayerFolder folder{old_settings()};
};

TEST_F(NoPlace, OnAFullDiskKeepsTheOldSettings) {
  OffscreenPlayer player(folder, {.nothing_can_be_written = true});
  close_and_judge(player, "disk full at close");
}

TEST_F(NoPlace, InAReadOnlyDirectoryAWritableFileIsSavedInPlace) {
  const std::string fresh = new_settings();
  fs::permissions(folder.file("TP.inf"), fs::perms::all);
  fs::permissions(folder.path(), fs::perms::owner_write, fs::perm_options::remove);
  fs::permissions(folder.path(), fs::perms::group_write | fs::perms::others_write, fs::perm_options::remove);
  OffscreenPlayer player(folder, {.ordinary_user = true});
  ASSERT_TRUE(player.started());
  player.send(SIGTERM);
  EXPECT_EQ(player.exit_status(), 0) << player.errors();
  EXPECT_EQ(folder.settings(), fresh);
  EXPECT_EQ(folder.strays(), 0);
  record_fault("directory read-only at close, TP.inf writable", "saved in place, status 0",
               std::string(folder.settings() == fresh ? "saved" : "NOT SAVED") + ", status " +
                   std::to_string(player.exit_status()));
}

TEST_F(NoPlace, InAReadOnlyFileKeepsTheOldSettings) {
  fs::permissions(folder.file("TP.inf"), fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  OffscreenPlayer player(folder, {.ordinary_user = true});
  close_and_judge(player, "TP.inf read-only at close");
}

// The program is stopped and continued by the system, as on a laptop that is shut.
TEST(SuspendedPlayer, GoesOnAndSavesItsSettings) {
  const std::string fresh = new_settings();
  const PlayerFolder folder(old_settings());
  OffscreenPlayer player(folder);
  ASSERT_TRUE(player.started());
  for (int i = 0; i < 20; ++i) {
    player.send(SIGSTOP);
    player.send(SIGCONT);
  }
  player.send(SIGSTOP);
  player.send(SIGTERM);
  player.send(SIGCONT);
  EXPECT_EQ(player.exit_status(), 0) << player.errors();
  EXPECT_EQ(folder.settings(), fresh);
  record_fault("process suspended and continued 21 times", "closes well", "closes well");
}

}  // namespace
}  // namespace tandem::test

// The program starts no other program, not even by one of its libraries.

#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "app/real_player.h"
#include "settings/settings_file.h"

namespace tandem::test {
namespace {

// Processes whose parents have ended come to this one.
std::set<pid_t> children() {
  std::set<pid_t> all;
  for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
    std::ifstream numbers(task.path() / "children");
    all.insert(std::istream_iterator<pid_t>(numbers), std::istream_iterator<pid_t>());
  }
  return all;
}

TEST(TheProgramAlone, StartsNoOther) {
  ASSERT_EQ(::prctl(PR_SET_CHILD_SUBREAPER, 1), 0);
  Desktop desktop;
  desktop.sound.start();
  ::unsetenv("DBUS_SESSION_BUS_ADDRESS");  // a session without a bus, for which libraries would start one
  const std::set<pid_t> before = children();
  RealPlayer player(desktop, factory_settings());
  ASSERT_TRUE(player.show_up()) << player.errors();
  player.click(kSongKey);
  ASSERT_TRUE(player.dialog_shows_up());
  player.answer_dialog("\"" + player.write_song("song.wav", 800, 1) + "\"");
  ASSERT_TRUE(player.dialog_goes_away());
  player.click(kPlayKey);
  player.click(kCloseKey);
  EXPECT_EQ(player.exit_status(), 0);
  EXPECT_EQ(player.errors(), "");
  EXPECT_EQ(children(), before);
  ::prctl(PR_SET_CHILD_SUBREAPER, 0);
}

}  // namespace
}  // namespace tandem::test

// The program's window among others: under a window manager, dragged, minimised, closed from outside; under another
// window.

#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "app/real_player.h"
#include "app/tone_times.h"
#include "settings/settings_file.h"

namespace tandem::test {
namespace {

class Managed : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists("/usr/bin/openbox")) GTEST_SKIP() << "openbox is not installed";
    ::setenv("XDG_CONFIG_HOME", desktop.home().path().c_str(), 1);
    manager = ChildProcess({"openbox", "--sm-disable"}, desktop.home().path() + ".log");
    ASSERT_TRUE(wait_until([this] { return !desktop.do_tool({"get_desktop"}).empty(); }));
    player = std::make_unique<RealPlayer>(desktop, factory_settings());
    ASSERT_TRUE(player->show_up()) << player->errors();
    ASSERT_TRUE(wait_until([this] { return is_active(); })) << "a new window gets the keys";
  }
  void TearDown() override { std::filesystem::remove(desktop.home().path() + ".log"); }
  std::string active() const {
    const std::string window = desktop.do_tool({"getactivewindow"});
    return window.substr(0, window.find('\n'));
  }
  bool is_active() const { return active() == player->window(); }
  bool is_mapped() const {
    return desktop.do_tool({"search", "--onlyvisible", "--class", "Tandem"}).find(player->window()) !=
           std::string::npos;
  }
  // As a user does: pixel by pixel.
  void drag(int x, int y, int right, int down) const {
    std::vector<std::string> words = {"mousemove", "--window", player->window(), std::to_string(x), std::to_string(y),
                                      "mousedown", "1"};
    const int steps = std::max(std::abs(right), std::abs(down));
    for (int step = 0; step < steps; ++step)
      for (const std::string& word : {std::string("mousemove_relative"), std::string("--"),
                                      std::to_string((step + 1) * right / steps - step * right / steps),
                                      std::to_string((step + 1) * down / steps - step * down / steps),
                                      std::string("sleep"), std::string("0.005")})
        words.push_back(word);
    words.insert(words.end(), {"mouseup", "1"});
    desktop.do_tool(words);
  }
  // The window trails the pointer by the way moved before the window manager was asked to move it.
  bool comes_near(int x, int y) const {
    constexpr int kLag = 4;
    return wait_until([&] {
      const auto [now_x, now_y] = player->place();
      return std::abs(now_x - x) <= kLag && std::abs(now_y - y) <= kLag;
    });
  }

  Desktop desktop;
  ChildProcess manager;
  std::unique_ptr<RealPlayer> player;
};

TEST_F(Managed, IsKnownByItsNameAndClass) {
  EXPECT_EQ(desktop.do_tool({"getwindowname", player->window()}), "Tandem\n");
  EXPECT_EQ(desktop.do_tool({"search", "--classname", "^tandem$"}), player->window() + "\n");
}

TEST_F(Managed, IsDraggedByItsHeadAndKeepsUp) {
  const auto [x, y] = player->place();
  drag(300, 7, 57, 33);
  EXPECT_TRUE(comes_near(x + 57, y + 33)) << player->place().first << " " << player->place().second;
  const auto before = player->place();
  drag(260, 150, -30, -60);  // by the bare faceplate
  EXPECT_TRUE(comes_near(before.first - 30, before.second - 60));
  const auto corner = player->place();
  player->click(kDisplayPanel);  // small, in its place
  EXPECT_TRUE(wait_until([this] { return player->panel_width() == 262; }));
  EXPECT_EQ(player->place(), corner);
  player->double_click(100, 7);  // full, in the middle of the screen
  EXPECT_TRUE(wait_until([this] { return player->place() == std::pair((1152 - 607) / 2, (1024 - 258) / 2); }));
}

TEST_F(Managed, IsMinimisedPlaysOnAndComesBack) {
  desktop.sound.start();
  player->key("ctrl+o");
  ASSERT_TRUE(player->dialog_shows_up());
  player->answer_dialog('"' + player->write_song("one.wav", kTone, 30) + '"');
  ASSERT_TRUE(player->dialog_goes_away());
  ASSERT_TRUE(player->play());
  player->click(579, 7);
  ASSERT_TRUE(wait_until([this] { return !is_mapped(); }));
  desktop.sound.start_recording();
  EXPECT_TRUE(wait_until([this] { return find_tone(desktop.sound.recording(), kTone).has_value(); }));
  desktop.do_tool({"windowactivate", player->window()});
  EXPECT_TRUE(wait_until([this] { return is_mapped() && is_active(); }));
  player->key("space");  // the focus is where it was, not on Minimise
  EXPECT_TRUE(is_mapped());
}

// 607 x 258, 607 x 426 and 262 x 165 by one and a half: halves are rounded up.
TEST_F(Managed, IsExactAtAScaleOfOneAndAHalf) {
  ::setenv("QT_SCALE_FACTOR", "1.5", 1);
  player = std::make_unique<RealPlayer>(desktop, factory_settings());
  ASSERT_TRUE(player->show_up(911)) << player->errors();
  const auto comes = [this](int width, int height) {
    return wait_until([&] { return player->panel_width() == width && player->panel_height() == height; });
  };
  EXPECT_TRUE(comes(911, 387));
  player->key("F3");
  EXPECT_TRUE(comes(911, 639));
  player->key("ctrl+m");
  EXPECT_TRUE(comes(393, 248));
}

TEST_F(Managed, IsClosedFromOutside) {
  player->click(kVolumeWheel, 5);  // one notch down
  player->key("alt+F4");           // the manager's own key
  EXPECT_EQ(player->exit_status(), 0);
  EXPECT_EQ(player->errors(), "");
  EXPECT_EQ(lines_of(player->settings()).at(15), std::to_string(32768 - 328));
}

// How often the program's first thread, which paints, has waited so far.
long waits(pid_t pid) {
  const std::string process = std::to_string(pid);
  std::ifstream status("/proc/" + process + "/task/" + process + "/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with("voluntary_ctxt_switches:")) return std::stol(line.substr(line.find('\t')));
  return 0;
}

// Within a second of the sound server's clock.
long waits_of_a_second(const Desktop& desktop, pid_t pid) {
  constexpr std::size_t kSecond = 44100;
  const std::size_t from = desktop.sound.recording().size();
  const long before = waits(pid);
  wait_until([&] { return desktop.sound.recording().size() >= from + kSecond; });
  return waits(pid) - before;
}

// A second player just as large, with nothing between it and the first.
TEST(Covered, PaintsNothingUntilItIsSeenAgain) {
  Desktop desktop;
  desktop.sound.start();
  RealPlayer player(desktop, factory_settings());
  ASSERT_TRUE(player.show_up()) << player.errors();
  player.key("ctrl+o");
  ASSERT_TRUE(player.dialog_shows_up());
  player.answer_dialog('"' + player.write_song("one.wav", kTone, 60) + '"');
  ASSERT_TRUE(player.dialog_goes_away());
  ASSERT_TRUE(player.play());
  desktop.sound.start_recording();
  ASSERT_TRUE(wait_until([&] { return find_tone(desktop.sound.recording(), kTone).has_value(); }));
  desktop.do_tool({"mousemove", "1270", "1020"});
  constexpr long kFrames = 25;  // of 30 to 60
  EXPECT_TRUE(wait_until([&] { return waits_of_a_second(desktop, player.pid()) > kFrames; }));

  RealPlayer cover(desktop, factory_settings());
  ASSERT_TRUE(cover.show_up()) << cover.errors();
  ASSERT_EQ(cover.place(), player.place());
  EXPECT_TRUE(wait_until([&] { return waits_of_a_second(desktop, player.pid()) < kFrames; }));

  desktop.do_tool({"windowmove", cover.window(), "640", "300"});
  EXPECT_TRUE(wait_until([&] { return waits_of_a_second(desktop, player.pid()) > kFrames; }));
}

}  // namespace
}  // namespace tandem::test

// What of a moving display comes to the screen of an X server.

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "app/real_player.h"
#include "app/screen_pixels.h"
#include "settings/settings_file.h"

namespace tandem::test {
namespace {

using Pixels = std::vector<std::uint32_t>;
using Names = std::vector<std::string>;

enum class Screen { kSharesMemory, kSharesNone };

class ShownDisplays : public testing::TestWithParam<Screen> {
 protected:
  ShownDisplays() : desktop(shares() ? Names{} : Names{"-extension", "MIT-SHM"}) {}
  void SetUp() override {
    desktop.sound.start();
    player = std::make_unique<RealPlayer>(desktop, factory_settings());
    ASSERT_TRUE(player->show_up()) << player->errors();
    const std::string song = player->write_song("song.wav", 1000, 3);
    player->key("ctrl+o");
    ASSERT_TRUE(player->dialog_shows_up());
    player->answer_dialog(song);
    ASSERT_TRUE(player->dialog_goes_away());
  }
  static bool shares() { return GetParam() == Screen::kSharesMemory; }
  // The well of the displays and what is about it.
  Pixels well() const {
    const auto [x, y] = player->place();
    return screen_pixels(x + 258, y + 10, 345, 103);
  }
  // How much of it differs.
  static double share(const Pixels& one, const Pixels& other) {
    int different = 0;
    for (std::size_t i = 0; i < one.size(); ++i) different += one[i] != other[i] ? 1 : 0;
    return different / static_cast<double>(one.size());
  }
  std::string mapped() const {
    std::stringstream maps;
    maps << std::ifstream("/proc/" + std::to_string(player->pid()) + "/maps").rdbuf();
    return maps.str();
  }

  Desktop desktop;
  std::unique_ptr<RealPlayer> player;
};

TEST_P(ShownDisplays, MoveWhileASongPlaysAndLeaveNothingBehind) {
  Pixels still;
  ASSERT_TRUE(wait_until([&] {
    still = well();
    return std::adjacent_find(still.begin(), still.end(), std::not_equal_to<>()) != still.end() && still == well();
  }));
  ASSERT_TRUE(player->play());
  EXPECT_TRUE(wait_until([&] { return share(well(), still) > 0.01; })) << "the display does not move";
  EXPECT_EQ(mapped().find("tandem-picture") != std::string::npos, shares());
  EXPECT_TRUE(wait_until([&] { return well() == still; })) << 100 * share(well(), still) << " % are left";
}

INSTANTIATE_TEST_SUITE_P(Screens, ShownDisplays, testing::Values(Screen::kSharesMemory, Screen::kSharesNone),
                         [](const auto& each) {
                           return each.param == Screen::kSharesMemory ? "SharingMemory" : "SharingNone";
                         });

// Says to all programs that a compositing manager runs, and composes nothing.
class CompositingManager {
 public:
  CompositingManager() : server_(xcb_connect(nullptr, nullptr)) {
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(server_)).data;
    const xcb_window_t window = xcb_generate_id(server_);
    xcb_create_window(server_, XCB_COPY_FROM_PARENT, window, screen->root, -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    constexpr std::string_view kName = "_NET_WM_CM_S0";
    const auto cookie = xcb_intern_atom(server_, 0, kName.size(), kName.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> atom(
        xcb_intern_atom_reply(server_, cookie, nullptr), &std::free);
    xcb_set_selection_owner(server_, window, atom->atom, XCB_CURRENT_TIME);
    wait_for_server();
  }
  ~CompositingManager() { xcb_disconnect(server_); }
  CompositingManager(const CompositingManager&) = delete;
  CompositingManager& operator=(const CompositingManager&) = delete;

 private:
  // An answer to anything: what was asked before has been done.
  void wait_for_server() { std::free(xcb_get_input_focus_reply(server_, xcb_get_input_focus(server_), nullptr)); }

  xcb_connection_t* server_;
};

TEST(CompositedDisplays, AreWholeWhenTheWindowComesBack) {
  Desktop desktop;
  desktop.sound.start();
  const CompositingManager manager;
  RealPlayer player(desktop, factory_settings());
  ASSERT_TRUE(player.show_up(607 + 2 * 24)) << "with its shadow; " << player.errors();
  const auto glass = [&] {
    const auto [x, y] = player.place();
    return screen_pixels(x + 24 + 258, y + 24 + 10, 345, 103);
  };
  player.key("ctrl+o");
  ASSERT_TRUE(player.dialog_shows_up());
  player.answer_dialog(player.write_song("song.wav", 1000, 1));
  ASSERT_TRUE(player.dialog_goes_away());
  const Pixels still = glass();
  ASSERT_TRUE(player.play());
  ASSERT_TRUE(wait_until([&] { return glass() != still; })) << "the display does not move";
  ASSERT_TRUE(wait_until([&] { return glass() == still; }));
  desktop.do_tool({"windowunmap", "--sync", player.window()});
  desktop.do_tool({"windowmap", "--sync", player.window()});
  EXPECT_TRUE(wait_until([&] { return glass() == still; })) << "holes";
}

}  // namespace
}  // namespace tandem::test

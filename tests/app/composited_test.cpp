// The window under a compositing manager, which may come and go while it runs.

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "app/real_player.h"
#include "app/screen_pixels.h"
#include "settings/settings_file.h"

namespace tandem::test {
namespace {

using Pixels = std::vector<std::uint32_t>;

constexpr int kShadow = 24;  // px about the panel

// But for the rounding of what is drawn with transparency.
bool look_alike(const Pixels& one, const Pixels& other) {
  const auto same = [](std::uint32_t a, std::uint32_t b) {
    for (int shift = 0; shift < 24; shift += 8)
      if (std::abs(static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF)) > 1) return false;
    return true;
  };
  return std::equal(one.begin(), one.end(), other.begin(), other.end(), same);
}

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

class CompositedDisplays : public testing::TestWithParam<double> {};

TEST_P(CompositedDisplays, AreWholeWhenTheWindowComesBack) {
  Desktop desktop;
  const auto pixels = [](int px) { return static_cast<int>(std::lround(GetParam() * px)); };
  ::setenv("QT_SCALE_FACTOR", std::to_string(GetParam()).c_str(), 1);
  desktop.sound.start();
  const CompositingManager manager;
  RealPlayer player(desktop, factory_settings());
  ASSERT_TRUE(player.show_up(pixels(607 + 2 * kShadow))) << "with its shadow; " << player.errors();
  const auto glass = [&] {
    const auto [x, y] = player.place();
    return screen_pixels(x + pixels(kShadow + 258), y + pixels(kShadow + 10), pixels(345), pixels(103));
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

INSTANTIATE_TEST_SUITE_P(Scales, CompositedDisplays, testing::Values(1.0, 1.25, 1.5),
                         [](const auto& each) { return std::to_string(static_cast<int>(100 * each.param)); });

TEST(CompositedWindow, HasItsShadowAndRoundCornersAsLongAsThereIsACompositor) {
  Desktop desktop;
  RealPlayer player(desktop, factory_settings());
  ASSERT_TRUE(player.show_up()) << player.errors();
  const std::pair<int, int> place = player.place();
  // Below the displays, which change by themselves: with the lower corners, and without.
  const auto panel = [&] { return screen_pixels(place.first, place.second + 170, 607, 88); };
  const auto inside = [&] { return screen_pixels(place.first + 20, place.second + 170, 567, 60); };
  const auto is_at = [&](int margin) {
    return player.show_up(607 + 2 * margin) && player.panel_height() == 258 + 2 * margin &&
           player.place() == std::pair(place.first - margin, place.second - margin);
  };
  Pixels square;
  ASSERT_TRUE(wait_until([&] {
    square = panel();
    return std::adjacent_find(square.begin(), square.end(), std::not_equal_to<>()) != square.end() && square == panel();
  }));
  const Pixels content = inside();
  for (int turn = 0; turn < 2; ++turn) {
    std::optional<CompositingManager> manager(std::in_place);
    EXPECT_TRUE(wait_until([&] { return is_at(kShadow) && look_alike(inside(), content); })) << "with its shadow";
    EXPECT_NE(panel(), square) << "its corners are round";
    manager.reset();
    EXPECT_TRUE(wait_until([&] { return is_at(0) && panel() == square; })) << "without";
  }
}

// The window manager has hidden it, and said so: the last thing that it does.
bool is_iconic(const std::string& window) {
  constexpr std::string_view kName = "WM_STATE";
  constexpr std::uint32_t kIconic = 3;
  xcb_connection_t* server = xcb_connect(nullptr, nullptr);
  const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> atom(
      xcb_intern_atom_reply(server, xcb_intern_atom(server, 0, kName.size(), kName.data()), nullptr), &std::free);
  const auto id = static_cast<xcb_window_t>(std::stoul(window));
  const auto cookie = xcb_get_property(server, 0, id, atom->atom, XCB_GET_PROPERTY_TYPE_ANY, 0, 1);
  const std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)> state(
      xcb_get_property_reply(server, cookie, nullptr), &std::free);
  const bool iconic = state && xcb_get_property_value_length(state.get()) == sizeof(kIconic) &&
                      *static_cast<const std::uint32_t*>(xcb_get_property_value(state.get())) == kIconic;
  xcb_disconnect(server);
  return iconic;
}

// Under a window manager, with a song that ends while the window is not to be seen.
class HiddenWindow : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists("/usr/bin/openbox")) GTEST_SKIP() << "openbox is not installed";
    ::setenv("XDG_CONFIG_HOME", desktop.home().path().c_str(), 1);
    window_manager = ChildProcess({"openbox", "--sm-disable"}, files.file("log"));
    ASSERT_TRUE(wait_until([this] { return !desktop.do_tool({"get_desktop"}).empty(); }));
    desktop.sound.start();
    player = std::make_unique<RealPlayer>(desktop, factory_settings());
    ASSERT_TRUE(player->show_up()) << player->errors();
    player->key("ctrl+o");
    ASSERT_TRUE(player->dialog_shows_up());
    player->answer_dialog(player->write_song("song.wav", 1000, 3));
    ASSERT_TRUE(player->dialog_goes_away());
    ASSERT_TRUE(player->play());
    place = player->place();
  }
  bool is_hidden() const {
    return wait_until([this] { return is_iconic(player->window()); });
  }
  bool is_mapped() const { return !desktop.do_tool({"search", "--onlyvisible", "--class", "Tandem"}).empty(); }
  // By the title of the window that was there before, which has its song's name no longer.
  bool song_ends() const {
    return wait_until([this] { return desktop.do_tool({"getwindowname", player->window()}) == "Tandem\n"; });
  }
  bool comes_back_with_its_shadow() {
    return player->show_up(607 + 2 * kShadow) &&
           wait_until([this] { return player->place() == std::pair(place.first - kShadow, place.second - kShadow); });
  }

  TempDirectory files;
  Desktop desktop;
  ChildProcess window_manager;
  std::unique_ptr<RealPlayer> player;
  std::pair<int, int> place;
};

TEST_F(HiddenWindow, StaysMinimisedWhenACompositorStarts) {
  desktop.do_tool({"windowminimize", player->window()});
  ASSERT_TRUE(is_hidden());
  const CompositingManager manager;
  EXPECT_TRUE(song_ends());
  EXPECT_FALSE(is_mapped());
  desktop.do_tool({"windowactivate", player->window()});
  EXPECT_TRUE(comes_back_with_its_shadow());
}

TEST_F(HiddenWindow, StaysOnItsWorkspaceWhenACompositorStarts) {
  desktop.do_tool({"set_desktop_for_window", player->window(), "1"});
  ASSERT_TRUE(is_hidden());
  const CompositingManager manager;
  EXPECT_TRUE(song_ends());
  EXPECT_FALSE(is_mapped());
  desktop.do_tool({"set_desktop", "1"});
  EXPECT_TRUE(comes_back_with_its_shadow());
  EXPECT_EQ(desktop.do_tool({"get_desktop_for_window", player->window()}), "1\n");
}

}  // namespace
}  // namespace tandem::test

// The window on a screen whose work area gets smaller while it runs: another resolution, a panel of the desktop.

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "app/real_player.h"
#include "settings/settings_file.h"

namespace tandem::test {
namespace {

// As window managers report it to all programs (Extended Window Manager Hints).
void set_work_area(const std::array<std::uint32_t, 4>& box) {
  const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> server(xcb_connect(nullptr, nullptr),
                                                                            &xcb_disconnect);
  constexpr std::string_view kName = "_NET_WORKAREA";
  const auto cookie = xcb_intern_atom(server.get(), 0, kName.size(), kName.data());
  const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> atom(
      xcb_intern_atom_reply(server.get(), cookie, nullptr), &std::free);
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server.get())).data->root;
  xcb_change_property(server.get(), XCB_PROP_MODE_REPLACE, root, atom->atom, XCB_ATOM_CARDINAL, 32, 4, box.data());
  std::free(xcb_get_input_focus_reply(server.get(), xcb_get_input_focus(server.get()), nullptr));  // it has been done
}

TEST(WorkArea, ThatIsTooSmallMakesTheWindowAsSmallAsItMustBe) {
  Desktop desktop({"-screen", "0", "1920x1080x24"});
  RealPlayer player(desktop, factory_settings());
  ASSERT_TRUE(player.show_up(911)) << "at 150 %; " << player.errors();
  desktop.do_tool({"windowmove", "--sync", player.window(), "900", "600"});
  set_work_area({0, 30, 800, 600});
  EXPECT_TRUE(wait_until([&] {
    const auto [x, y] = player.place();
    const int width = player.panel_width();
    return width == 759 && x >= 0 && x + width <= 800 && y >= 30 && y + player.panel_height() <= 630;
  })) << "at 125 %, and within it; "
      << player.panel_width() << " at " << player.place().first << ' ' << player.place().second;
}

}  // namespace
}  // namespace tandem::test

// What of a moving display comes to the screen of an X server.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
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

TEST_P(ShownDisplays, MoveWhileASongPlaysAndLeaveNoTrace) {
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

}  // namespace
}  // namespace tandem::test

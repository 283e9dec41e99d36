// The program on a native Wayland desktop, which lies in a window of the virtual screen; over the bus of assistive
// technology, by keys, and heard.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "app/assistive_bus.h"
#include "app/real_player.h"
#include "app/tone_times.h"
#include "settings/settings_file.h"

namespace tandem::test {
namespace {

class OnWayland : public testing::Test {
 protected:
  void SetUp() override {
    if (!AssistiveBus::installed()) GTEST_SKIP() << "at-spi2-core is not installed";
    if (!std::filesystem::exists("/usr/bin/weston")) GTEST_SKIP() << "weston is not installed";
    desktop.sound.start();
    bus = std::make_unique<AssistiveBus>();
    std::filesystem::permissions(runtime.path(), std::filesystem::perms::owner_all);
    ::setenv("XDG_RUNTIME_DIR", runtime.path().c_str(), 1);
    compositor = ChildProcess({"weston", "--no-config", "--backend=x11-backend.so", "--use-pixman", "--idle-time=0",
                               "--width=1152", "--height=1000", "--socket=desk", "--log=" + runtime.file("log")},
                              runtime.file("output"));
    ASSERT_TRUE(wait_until([this] { return std::filesystem::exists(runtime.file("desk")); }));
    ::setenv("WAYLAND_DISPLAY", "desk", 1);
    ::setenv("QT_QPA_PLATFORM", "wayland", 1);
    player = std::make_unique<RealPlayer>(desktop, factory_settings());
    ASSERT_TRUE(bus->find("Tandem")) << player->errors();
  }
  void TearDown() override {
    ::unsetenv("WAYLAND_DISPLAY");
    ::unsetenv("XDG_RUNTIME_DIR");
  }
  std::optional<AssistiveObject> seen(const std::string& name, const std::string& role) const {
    for (const AssistiveObject& each : bus->objects())
      if (each.showing && each.name == name && each.role == role) return each;
    return std::nullopt;
  }
  bool comes(const std::string& name, const std::string& role) const {
    return wait_until([&] { return seen(name, role).has_value(); });
  }
  bool press(const std::string& name) const {
    const auto found = seen(name, "push button");
    return found && bus->act(*found, "Press");
  }
  // The keys of the screen go to the compositor's window, and from there to what is in front.
  void type(const std::string& text) const {
    const std::string windows = desktop.do_tool({"search", "--onlyvisible", "--name", ""});
    desktop.do_tool({"windowfocus", "--sync", windows.substr(0, windows.find('\n'))});
    desktop.do_tool({"type", "--delay", "15", text});
    desktop.do_tool({"key", "Return"});
  }

  Desktop desktop;
  TempDirectory runtime;
  ChildProcess compositor;
  std::unique_ptr<AssistiveBus> bus;
  std::unique_ptr<RealPlayer> player;
};

TEST_F(OnWayland, StartsPlaysAndEnds) {
  const std::string song = player->write_song("one.wav", kTone, 30);
  ASSERT_TRUE(press("Load a song"));
  ASSERT_TRUE(comes("Open", "dialog"));
  type('"' + song + '"');
  ASSERT_TRUE(comes("01 - " + song, "list item"));
  desktop.sound.start_recording();
  ASSERT_TRUE(press("Play"));
  EXPECT_TRUE(wait_until([this] { return find_tone(desktop.sound.recording(), kTone).has_value(); }));
  EXPECT_TRUE(press("Display, press to change the window size"));
  EXPECT_TRUE(wait_until([this] { return !seen("Show playlist", "push button"); }));
  EXPECT_TRUE(press("Display, press to change the window size"));
  EXPECT_TRUE(comes("Show playlist", "push button"));
  EXPECT_TRUE(press("Close"));
  EXPECT_EQ(player->exit_status(), 0);
  EXPECT_EQ(player->errors().find("tandem:"), std::string::npos) << player->errors();
}

}  // namespace
}  // namespace tandem::test

// The program on a session bus, as media keys, a file manager and a lock screen meet it.

#include <gtest/gtest.h>
#include <signal.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "app/real_player.h"
#include "app/tone_times.h"
#include "desktop/names.h"
#include "platform/desktop/bus_test_daemon.h"
#include "settings/settings_file.h"

namespace tandem::test {
namespace {

constexpr double kBusTone = 1500;

// What programs report to the desktop about starts, one after the other.
class StartupReports {
 public:
  StartupReports() : server_(xcb_connect(nullptr, nullptr)) {
    constexpr std::uint32_t kEvents = XCB_EVENT_MASK_PROPERTY_CHANGE;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server_)).data->root;
    xcb_change_window_attributes(server_, root, XCB_CW_EVENT_MASK, &kEvents);
    std::free(xcb_get_input_focus_reply(server_, xcb_get_input_focus(server_), nullptr));  // it is done
  }
  ~StartupReports() { xcb_disconnect(server_); }
  StartupReports(const StartupReports&) = delete;
  StartupReports& operator=(const StartupReports&) = delete;

  std::string text() {
    while (xcb_generic_event_t* event = xcb_poll_for_event(server_)) {
      const auto& part = *reinterpret_cast<const xcb_client_message_event_t*>(event);
      if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE && part.format == 8)
        for (const std::uint8_t byte : part.data.data8) text_ += byte == 0 ? '|' : static_cast<char>(byte);
      std::free(event);
    }
    return text_;
  }

 private:
  xcb_connection_t* server_;
  std::string text_;
};

class SessionBus : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists("/usr/bin/playerctl")) GTEST_SKIP() << "playerctl is not installed";
    bus.start();
    ::setenv("DBUS_SESSION_BUS_ADDRESS", bus.address().c_str(), 1);
    desktop.sound.start();
    player = std::make_unique<RealPlayer>(desktop, factory_settings());
    ASSERT_TRUE(player->show_up()) << player->errors();
    ASSERT_TRUE(comes_to({"playerctl", "status"}, "Stopped\n"));
  }
  void TearDown() override { ::unsetenv("DBUS_SESSION_BUS_ADDRESS"); }

  std::string output_of(const std::vector<std::string>& command) const {
    const std::string file = files.file("output");
    ChildProcess(command, file).wait();
    std::stringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
  }
  bool comes_to(const std::vector<std::string>& command, const std::string& expected) const {
    return wait_until([&] { return output_of(command) == expected; });
  }
  // As a file manager does it.
  void open_with(const std::string& path) const {
    output_of({"busctl", "--user", "call", kApplicationName, kApplicationObject, "org.freedesktop.Application", "Open",
               "asa{sv}", "1", "file://" + path, "0"});
  }
  bool menu_is_open() const {
    const std::string windows = desktop.do_tool({"search", "--onlyvisible", "--class", "tandem"});
    return !windows.empty() && windows != player->window() + "\n";
  }
  std::string title() const { return desktop.do_tool({"getwindowname", player->window()}); }

  TempDirectory files;
  BusTestDaemon bus;
  Desktop desktop;
  std::unique_ptr<RealPlayer> player;
};

TEST_F(SessionBus, OpensASongAndPlaysItByAMediaKey) {
  EXPECT_EQ(title(), "Tandem\n");
  open_with(player->write_song("tone.wav", kBusTone, 20));
  desktop.sound.start_recording();
  EXPECT_TRUE(comes_to({"playerctl", "play"}, ""));
  EXPECT_TRUE(wait_until([&] { return find_tone(desktop.sound.recording(), kBusTone).has_value(); }));
  EXPECT_TRUE(comes_to({"playerctl", "status"}, "Playing\n"));
  EXPECT_TRUE(wait_until([&] { return title() == "TONE.WAV - Tandem\n"; })) << title();
  EXPECT_EQ(output_of({"playerctl", "metadata", "title"}), "TONE.WAV\n");
  EXPECT_TRUE(wait_until([&] {
    return output_of({"pactl", "list", "sink-inputs"}).find("media.name = \"TONE.WAV\"") != std::string::npos;
  }));
  output_of({"playerctl", "play-pause"});
  EXPECT_TRUE(comes_to({"playerctl", "status"}, "Paused\n"));
  output_of({"playerctl", "stop"});
  EXPECT_TRUE(comes_to({"playerctl", "status"}, "Stopped\n"));
  EXPECT_TRUE(wait_until([&] { return title() == "Tandem\n"; }));
}

TEST_F(SessionBus, EndsWhenItIsAskedTo) {
  output_of({"busctl", "--user", "call", kMprisName, kMprisObject, "org.mpris.MediaPlayer2", "Quit"});
  EXPECT_EQ(player->exit_status(), 0);
  EXPECT_EQ(player->errors(), "");
}

// A file manager shows the busy pointer until then. A zero is a bar here; the text comes in parts of 20 bytes.
TEST_F(SessionBus, ReportsThatTheStartWhichTheDesktopAwaitsIsOver) {
  StartupReports reports;
  output_of({"busctl", "--user", "call", kApplicationName, kApplicationObject, "org.freedesktop.Application",
             "Activate", "a{sv}", "1", "desktop-startup-id", "s", "files/\"a\"_TIME7"});
  EXPECT_TRUE(wait_until([&] { return reports.text() == "remove: ID=\"files/\\\"a\\\"_TIME7\"||||||||||"; }))
      << reports.text();
}

TEST_F(SessionBus, ShowsAMenuAtTheRightButton) {
  player->click(300, 200, 3);
  EXPECT_TRUE(wait_until([&] { return menu_is_open(); }));
}

// A step forward and two back; the menu beside them says that they have been done.
TEST_F(SessionBus, LeavesTheRightButtonToTheRotarySwitches) {
  constexpr std::size_t kLine = 28;  // of the settings, for the switch of the displays
  const int before = std::stoi(lines_of(player->settings()).at(kLine));
  for (const int button : {1, 3, 3}) player->click(kMeterSwitch, button);
  player->click(300, 200, 3);
  EXPECT_TRUE(wait_until([&] { return menu_is_open(); }));
  player->send(SIGTERM);
  EXPECT_EQ(player->exit_status(), 0);
  EXPECT_EQ(std::stoi(lines_of(player->settings()).at(kLine)), (before + 2) % 3);
}

// A window manager that begins every window minimized: nothing of it is ever seen.
TEST(MinimizedPlayer, JoinsTheDesktopAllTheSame) {
  if (!std::filesystem::exists("/usr/bin/openbox")) GTEST_SKIP() << "openbox is not installed";
  const TempDirectory files;
  BusTestDaemon bus;
  Desktop desktop;
  bus.start();
  ::setenv("DBUS_SESSION_BUS_ADDRESS", bus.address().c_str(), 1);
  std::ofstream(files.file("rc.xml")) << "<openbox_config xmlns='http://openbox.org/3.4/rc'><applications>"
                                         "<application class='*'><iconic>yes</iconic></application>"
                                         "</applications></openbox_config>";
  const ChildProcess manager({"openbox", "--sm-disable", "--config-file", files.file("rc.xml")}, files.file("log"));
  ASSERT_TRUE(wait_until([&] { return !desktop.do_tool({"get_desktop"}).empty(); }));
  RealPlayer player(desktop, factory_settings());
  EXPECT_TRUE(wait_until([&] {
    return ChildProcess(
               {"busctl", "--user", "call", kApplicationName, kApplicationObject, "org.freedesktop.DBus.Peer", "Ping"},
               files.file("answer"))
               .wait() == 0;
  })) << player.errors();
  player.send(SIGTERM);
  EXPECT_EQ(player.exit_status(), 0);
  ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
}

// Started by a link the program keeps its settings beside the link.
TEST(ProgramLink, HasTheSettingsBesideIt) {
  Desktop desktop;
  const TempDirectory own;
  std::filesystem::create_symlink(TANDEM_PROGRAM, own.file("tandem"));
  std::ofstream(own.file("TP.inf")) << factory_settings();
  ChildProcess program({own.file("tandem")}, own.file("output"));
  const auto shown = [&] { return !desktop.do_tool({"search", "--onlyvisible", "--class", "Tandem"}).empty(); };
  ASSERT_TRUE(wait_until(shown));
  std::filesystem::remove(own.file("TP.inf"));
  program.send(SIGTERM);
  EXPECT_EQ(program.wait(), 0);
  EXPECT_TRUE(std::filesystem::exists(own.file("TP.inf")));
}

TEST(OnlyWord, IsAnsweredWithoutAScreen) {
  const TempDirectory files;
  const auto answer = [&](const char* word) {
    ChildProcess program({TANDEM_PROGRAM, word}, files.file("output"));
    EXPECT_EQ(program.wait(), 0);
    std::stringstream text;
    text << std::ifstream(files.file("output")).rdbuf();
    return text.str();
  };
  EXPECT_TRUE(answer("--version").starts_with("Tandem 1."));
  EXPECT_TRUE(answer("--help").starts_with("Usage: tandem\n"));
}

}  // namespace
}  // namespace tandem::test

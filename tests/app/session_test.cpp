// The program in a session that is saved, ended or broken off: the music goes on where the session does, and the
// settings are saved where it does not.

#include <gtest/gtest.h>

#include <signal.h>

#include <atomic>
#include <cstdlib>
#include <optional>
#include <string>
#include <thread>

#include "app/real_player.h"
#include "app/session_manager.h"
#include "settings/settings_file.h"

namespace tandem::test {
namespace {

const std::string kLower = std::to_string(32768 - 328);  // one notch of the wheel

void report(const std::string& fault, const std::string& measured) {
  testing::Test::RecordProperty("fault", fault);
  testing::Test::RecordProperty("expected", "goes on where the session does, else settings saved");
  testing::Test::RecordProperty("measured", measured);
}

std::string first_line(const std::string& text) { return text.substr(0, text.find('\n')); }

class Session : public testing::Test {
 protected:
  void start() {
    player = std::make_unique<RealPlayer>(desktop, factory_settings());
    ASSERT_TRUE(player->show_up()) << player->errors();
    player->click(kVolumeWheel, 5);  // one notch down
  }
  bool volume_is_saved() const { return saved_volume() == kLower; }
  std::string saved_volume() const { return lines_of(player->settings()).at(kVolumeLine); }
  void report_end(const std::string& fault, std::optional<int> status) const {
    report(fault, "status " + (status ? std::to_string(*status) : "none") + ", volume " + saved_volume() + " where " +
                      kLower + " was set");
  }
  void report_refusal(const std::string& fault, std::optional<int> status) const {
    report(fault, "status " + (status ? std::to_string(*status) : "none") +
                      ", without a box: " + first_line(player->errors()));
  }

  Desktop desktop;
  std::unique_ptr<RealPlayer> player;
};

class ManagedSession : public Session {
 protected:
  void SetUp() override {
    std::atomic<bool> shown{false};
    // The program waits for the manager's answer before its window comes.
    std::thread answers([&] {
      while (!shown) manager.work();
    });
    start();
    shown = true;
    answers.join();
    ASSERT_TRUE(wait_until([this] { return manager.work() && manager.has_client(); }));
    ask(false);  // the one that every client gets when it registers
  }
  void ask(bool shut_down) {
    const int before = manager.saves_done();
    manager.save(shut_down);
    ASSERT_TRUE(wait_until([&] { return manager.work() && manager.saves_done() > before; }));
  }
  // It answers to a press: Ctrl+M makes the window small.
  void expect_life_after(const std::string& fault) {
    player->key("ctrl+m");
    EXPECT_TRUE(wait_until([this] { return manager.work() && player->panel_width() == 262; }));
    EXPECT_TRUE(manager.has_client());
    report(fault, "goes on: Ctrl+M makes its panel " + std::to_string(player->panel_width()) + " wide");
  }

  SessionManager manager;
};

TEST_F(ManagedSession, ACheckpointLeavesThePlayerAsItIs) {
  ask(false);
  expect_life_after("session manager saves the session");
}

TEST_F(ManagedSession, ALogoutThatIsCancelledLeavesThePlayerAsItIs) {
  ask(true);
  manager.cancel_logout();
  expect_life_after("logout that is cancelled");
}

TEST_F(ManagedSession, TheEndOfTheSessionSavesTheSettings) {
  ask(true);
  manager.end_session();
  EXPECT_TRUE(wait_until([this] { return manager.work() && !manager.has_client(); }));
  const std::optional<int> status = player->exit_status();
  EXPECT_EQ(status, 0);
  EXPECT_TRUE(volume_is_saved());
  report_end("session ends", status);
}

TEST_F(ManagedSession, ItsEndWaitsForNoBoxWhereTheSettingsCannotBeSaved) {
  player->make_settings_unwritable();
  ask(true);
  manager.end_session();
  EXPECT_TRUE(wait_until([this] { return manager.work() && !manager.has_client(); }));
  const std::optional<int> status = player->exit_status();
  EXPECT_EQ(status, 1);
  EXPECT_NE(player->errors().find("TP.inf"), std::string::npos) << player->errors();
  report_refusal("session ends, settings cannot be saved", status);
}

TEST_F(Session, TheEndOfItsTerminalSavesTheSettings) {
  start();
  player->send(SIGHUP);
  const std::optional<int> status = player->exit_status();
  EXPECT_EQ(status, 0);
  EXPECT_TRUE(volume_is_saved());
  report_end("SIGHUP", status);
}

TEST_F(Session, UnderNohupTheEndOfItsTerminalIsNothing) {
  ::signal(SIGHUP, SIG_IGN);  // which the player inherits
  start();
  ::signal(SIGHUP, SIG_DFL);
  player->send(SIGHUP);
  player->key("ctrl+m");
  EXPECT_TRUE(wait_until([this] { return player->panel_width() == 262; }));
}

TEST_F(Session, TheEndOfTheScreenSavesTheSettings) {
  start();
  desktop.end_screen();
  const std::optional<int> status = player->exit_status();
  EXPECT_EQ(status, 1);
  EXPECT_TRUE(volume_is_saved());
  report_end("X server ends", status);
}

TEST_F(Session, ASignalWaitsForNoBoxWhereTheSettingsCannotBeSaved) {
  start();
  player->make_settings_unwritable();
  player->send(SIGTERM);
  const std::optional<int> status = player->exit_status();
  EXPECT_EQ(status, 1);
  EXPECT_NE(player->errors().find("TP.inf"), std::string::npos) << player->errors();
  report_refusal("SIGTERM, settings cannot be saved", status);
}

}  // namespace
}  // namespace tandem::test

// The program in a session that is saved, ended or broken off: the music goes on where the session does, and the
// settings are saved where it does not.

#include <gtest/gtest.h>

#include <signal.h>

#include <atomic>
#include <cstdlib>
#include <thread>

#include "app/real_player.h"
#include "app/session_manager.h"
#include "settings/settings_file.h"

namespace tandem::test {
namespace {

constexpr std::size_t kVolumeLine = 15;
const std::string kLower = std::to_string(32768 - 328);  // one notch of the wheel

void report(const std::string& fault, const std::string& measured) {
  testing::Test::RecordProperty("fault", fault);
  testing::Test::RecordProperty("expected", "goes on where the session does, else settings saved");
  testing::Test::RecordProperty("measured", measured);
}

class Session : public testing::Test {
 protected:
  void start() {
    player = std::make_unique<RealPlayer>(desktop, factory_settings());
    ASSERT_TRUE(player->show_up()) << player->errors();
    player->click(235, 137, 5);  // the wheel on the volume, one notch down
  }
  bool volume_is_saved() const { return lines_of(player->settings()).at(kVolumeLine) == kLower; }

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
  void expect_life() {
    player->key("ctrl+m");
    EXPECT_TRUE(wait_until([this] { return manager.work() && player->panel_width() == 262; }));
    EXPECT_TRUE(manager.has_client());
  }

  SessionManager manager;
};

TEST_F(ManagedSession, ACheckpointLeavesThePlayerAsItIs) {
  ask(false);
  expect_life();
  report("session manager saves the session", "player goes on");
}

TEST_F(ManagedSession, ALogoutThatIsCancelledLeavesThePlayerAsItIs) {
  ask(true);
  manager.cancel_logout();
  expect_life();
  report("logout that is cancelled", "player goes on");
}

TEST_F(ManagedSession, TheEndOfTheSessionSavesTheSettings) {
  ask(true);
  manager.end_session();
  EXPECT_TRUE(wait_until([this] { return manager.work() && !manager.has_client(); }));
  EXPECT_EQ(player->exit_status(), 0);
  EXPECT_TRUE(volume_is_saved());
  report("session ends", "settings saved, status 0");
}

TEST_F(ManagedSession, ItsEndWaitsForNoBoxWhereTheSettingsCannotBeSaved) {
  player->make_settings_unwritable();
  ask(true);
  manager.end_session();
  EXPECT_TRUE(wait_until([this] { return manager.work() && !manager.has_client(); }));
  EXPECT_EQ(player->exit_status(), 1);
  EXPECT_NE(player->errors().find("TP.inf"), std::string::npos) << player->errors();
  report("session ends, settings cannot be saved", "report on standard error, no box, status 1");
}

TEST_F(Session, TheEndOfItsTerminalSavesTheSettings) {
  start();
  player->send(SIGHUP);
  EXPECT_EQ(player->exit_status(), 0);
  EXPECT_TRUE(volume_is_saved());
  report("SIGHUP", "settings saved, status 0");
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
  EXPECT_EQ(player->exit_status(), 1);
  EXPECT_TRUE(volume_is_saved());
  report("X server ends", "settings saved, status 1");
}

TEST_F(Session, ASignalWaitsForNoBoxWhereTheSettingsCannotBeSaved) {
  start();
  player->make_settings_unwritable();
  player->send(SIGTERM);
  EXPECT_EQ(player->exit_status(), 1);
  EXPECT_NE(player->errors().find("TP.inf"), std::string::npos) << player->errors();
  report("SIGTERM, settings cannot be saved", "report on standard error, no box, status 1");
}

}  // namespace
}  // namespace tandem::test

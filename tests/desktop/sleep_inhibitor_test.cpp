// The machine stays awake while a song sounds, and only then; by stand-ins for the portal and for login1.

#include <filesystem>
#include <optional>

#include "desktop/desktop_rig.h"
#include "desktop/fake_sleep.h"

namespace tandem::test {
namespace {

class Sleep : public DesktopRig {
 protected:
  void SetUp() override {
    DesktopRig::SetUp();
    start();
    panel_.add_songs(1);
  }
  void TearDown() override {
    services_.reset();
    portal_.reset();
    login_.reset();
    DesktopRig::TearDown();
  }
  bool portal_holds(int holders) {
    return soon([&] { return portal_->holders() == holders; });
  }
  bool login_holds(int holders) {
    return soon([&] { return login_->holders() == holders; });
  }

  std::optional<FakeInhibitPortal> portal_;
  std::optional<FakeLogin> login_;
};

TEST_F(Sleep, IsHeldOffByThePortalWhileASongSounds) {
  constexpr unsigned kSuspend = 4;
  portal_.emplace(bus_);
  login_.emplace(bus_);
  remote_.play();
  EXPECT_TRUE(portal_holds(1));
  EXPECT_EQ(portal_->flags(), kSuspend) << "the screen may go dark";
  remote_.pause();
  EXPECT_TRUE(portal_holds(0));
  remote_.play();
  EXPECT_TRUE(portal_holds(1));
  remote_.stop();
  EXPECT_TRUE(portal_holds(0));
  remote_.play();
  EXPECT_TRUE(portal_holds(1));
  panel_.sound.mixer->end_input(0);  // of the last song: the panel stops
  EXPECT_TRUE(portal_holds(0));
  EXPECT_EQ(login_->holders(), 0);
}

TEST_F(Sleep, IsHeldOffByLoginWhereThereIsNoPortal) {
  login_.emplace(bus_);
  remote_.play();
  EXPECT_TRUE(login_holds(1));
  remote_.pause();
  EXPECT_TRUE(login_holds(0));
}

TEST_F(Sleep, IsHeldOffByLoginWhereThePortalCannot) {
  portal_.emplace(bus_, FakeInhibitPortal::Verdict::kNotKnown);
  login_.emplace(bus_);
  remote_.play();
  EXPECT_TRUE(login_holds(1));
}

TEST_F(Sleep, IsHeldOffByLoginWhereThePortalRefusesOnSecondThought) {
  login_.emplace(bus_);
  for (const auto verdict : {FakeInhibitPortal::Verdict::kRefusesFirst, FakeInhibitPortal::Verdict::kRefusesLater}) {
    portal_.emplace(bus_, verdict);
    remote_.play();
    EXPECT_TRUE(login_holds(1));
    remote_.stop();
    EXPECT_TRUE(login_holds(0));
    EXPECT_EQ(portal_->holders(), 0);
    portal_.reset();
  }
}

TEST_F(Sleep, IsShownWithItsReasonByTheSystemsOwnList) {
  if (!std::filesystem::exists("/usr/bin/systemd-inhibit")) GTEST_SKIP() << "systemd is not installed";
  login_.emplace(bus_);
  remote_.play();
  ASSERT_TRUE(login_holds(1));
  const std::string list = output_of({"systemd-inhibit", "--list", "--no-pager"});
  for (const char* part : {"Tandem", "sleep:idle", "Playing music", "block"})
    EXPECT_NE(list.find(part), std::string::npos) << list;
}

TEST_F(Sleep, IsLetGoThoughTheAnswerComesLate) {
  portal_.emplace(bus_);
  remote_.play();
  services_->update(0);
  remote_.stop();
  services_->update(0);  // nothing has come from the bus yet
  EXPECT_TRUE(soon([&] { return portal_->asked() == 1; }));
  EXPECT_TRUE(portal_holds(0));
}

TEST_F(Sleep, IsHeldOffAgainByAPortalThatComesBack) {
  portal_.emplace(bus_);
  remote_.play();
  ASSERT_TRUE(portal_holds(1));
  portal_.reset();
  portal_.emplace(bus_);
  EXPECT_TRUE(portal_holds(1));
}

TEST_F(Sleep, IsLetGoAtTheEnd) {
  portal_.emplace(bus_);
  remote_.play();
  ASSERT_TRUE(portal_holds(1));
  services_.reset();
  EXPECT_TRUE(portal_holds(0));
}

TEST_F(Sleep, WithNeitherThePlayerSaysNothing) {
  remote_.play();
  meanwhile([](sd_bus*) {});
  EXPECT_EQ(remote_.motion(), PanelRemote::Motion::Playing);
}

}  // namespace
}  // namespace tandem::test

#include "platform/desktop/reduced_motion.h"

#include <cstdlib>
#include <memory>

#include "platform/desktop/bus_fixture.h"
#include "platform/desktop/fake_portal.h"
#include "platform/realtime/monotonic_clock.h"

namespace tandem {
namespace {

class ReducedMotionSettingTest : public BusFixture {
 protected:
  void SetUp() override {
    ::setenv("DBUS_SESSION_BUS_ADDRESS", bus_.address().c_str(), 1);
    BusFixture::SetUp();
  }
  void TearDown() override {
    motion_.reset();
    BusFixture::TearDown();
    ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
  }
  void listen() {
    motion_ = std::make_unique<ReducedMotionSetting>([this](bool reduced) { reports_.push_back(reduced); });
  }
  void start(const FakePortal::Settings& settings) {
    bus_.start();
    portal_ = std::make_unique<FakePortal>(bus_, settings);
    listen();
  }
  bool reported(const std::vector<bool>& expected) {
    return soon([&] { return reports_ == expected; });
  }
  bool asked(int questions) {
    return soon([&] { return portal_->questions() >= questions; });
  }

  std::unique_ptr<FakePortal> portal_;
  std::unique_ptr<ReducedMotionSetting> motion_;
  std::vector<bool> reports_;
};

TEST_F(ReducedMotionSettingTest, IsReducedWhereTheDesktopAnimatesNothing) {
  start({.animations = false, .knows_reduced_motion = false});
  EXPECT_TRUE(reported({true}));
}

TEST_F(ReducedMotionSettingTest, IsReducedWhereTheDesktopSaysSo) {
  start({.reduced_motion = 1});
  EXPECT_TRUE(reported({true}));
}

TEST_F(ReducedMotionSettingTest, FollowsEveryChange) {
  start({});
  ASSERT_TRUE(asked(2));
  portal_->change_animations(false);
  ASSERT_TRUE(reported({true}));
  portal_->change_something_else();
  portal_->change_reduced_motion(1);
  portal_->change_animations(true);
  portal_->change_reduced_motion(0);
  ASSERT_TRUE(reported({true, false})) << "reduced until neither switch says so";
  portal_->change_reduced_motion(1);
  EXPECT_TRUE(reported({true, false, true}));
}

TEST_F(ReducedMotionSettingTest, APortalThatComesLaterIsAskedAndNoneIsStarted) {
  bus_.start();
  listen();
  // Long enough for the question to come to nothing, or else to start the portal.
  EXPECT_FALSE(wait_until(
      [this] {
        QCoreApplication::processEvents();
        return bus_.has_started_a_service();
      },
      std::chrono::milliseconds(100)));
  portal_ = std::make_unique<FakePortal>(bus_, FakePortal::Settings{.animations = false});
  EXPECT_TRUE(reported({true}));
}

TEST_F(ReducedMotionSettingTest, WithoutABusNothingIsReported) {
  listen();
  QCoreApplication::processEvents();
  EXPECT_TRUE(reported({}));
}

TEST_F(ReducedMotionSettingTest, ABusThatHangsBlocksNoThread) {
  start({});
  bus_.freeze();
  const Nanoseconds began = monotonic_now();
  listen();
  QCoreApplication::processEvents();
  motion_.reset();
  EXPECT_LT(monotonic_now() - began, kNanosecondsPerSecond / 2);
  bus_.kill_hard();
}

TEST_F(ReducedMotionSettingTest, ABusThatDiesIsLeft) {
  start({.animations = false});
  ASSERT_TRUE(reported({true}));
  bus_.kill_hard();
  for (int i = 0; i < 20; ++i) QCoreApplication::processEvents();
  EXPECT_TRUE(reported({true}));
}

}  // namespace
}  // namespace tandem

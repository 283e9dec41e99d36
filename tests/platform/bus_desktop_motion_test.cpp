#include "platform/bus_desktop_motion.h"

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <string>

#include "platform/bus_fixture.h"
#include "platform/monotonic_clock.h"

namespace tandem {
namespace {

// What the desktop portal is to a program: it tells settings when asked, and changes of them.
class FakePortal {
 public:
  struct Settings {
    bool animations = true;
    unsigned reduced_motion = 0;
    bool knows_reduced_motion = true;  // older ones do not
  };

  FakePortal(const BusTestDaemon& bus, const Settings& settings)
      : settings_(settings), service_(bus, "org.freedesktop.portal.Desktop", kObject, [this](sd_bus_message* call) {
          return answer(call);
        }) {}

  void change_animations(bool on) {
    service_.run([on](sd_bus* bus) {
      sd_bus_emit_signal(bus, kObject, kInterface, "SettingChanged", "ssv", "org.gnome.desktop.interface",
                         "enable-animations", "b", static_cast<int>(on));
    });
  }
  void change_reduced_motion(unsigned value) {
    service_.run([value](sd_bus* bus) {
      sd_bus_emit_signal(bus, kObject, kInterface, "SettingChanged", "ssv", "org.freedesktop.appearance",
                         "reduced-motion", "u", value);
    });
  }
  void change_something_else() {
    service_.run([](sd_bus* bus) {
      sd_bus_emit_signal(bus, kObject, kInterface, "SettingChanged", "ssv", "org.gnome.desktop.interface", "font-name",
                         "s", "Nothing 11");
    });
  }
  int questions() const { return questions_.load(); }

 private:
  static constexpr const char* kObject = "/org/freedesktop/portal/desktop";
  static constexpr const char* kInterface = "org.freedesktop.portal.Settings";

  int answer(sd_bus_message* call) {
    if (sd_bus_message_is_method_call(call, kInterface, "Read") <= 0) return -EINVAL;
    const char* group = nullptr;
    const char* key = nullptr;
    if (sd_bus_message_read(call, "ss", &group, &key) <= 0) return -EINVAL;
    ++questions_;
    const std::string wanted = std::string(group) + " " + key;
    if (wanted == "org.gnome.desktop.interface enable-animations")
      return sd_bus_reply_method_return(call, "v", "v", "b", static_cast<int>(settings_.animations));
    if (wanted == "org.freedesktop.appearance reduced-motion" && settings_.knows_reduced_motion)
      return sd_bus_reply_method_return(call, "v", "v", "u", settings_.reduced_motion);
    return sd_bus_reply_method_errorf(call, "org.freedesktop.portal.Error.NotFound", "Requested setting not found");
  }

  Settings settings_;
  std::atomic<int> questions_{0};
  BusTestService service_;
};

class BusDesktopMotionTest : public BusFixture {
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
    motion_ = std::make_unique<BusDesktopMotion>([this](bool reduced) { told_.push_back(reduced); });
  }
  void start(const FakePortal::Settings& settings) {
    bus_.start();
    portal_ = std::make_unique<FakePortal>(bus_, settings);
    listen();
  }
  bool told(const std::vector<bool>& expected) {
    return soon([&] { return told_ == expected; });
  }
  bool asked(int questions) {
    return soon([&] { return portal_->questions() >= questions; });
  }

  std::unique_ptr<FakePortal> portal_;
  std::unique_ptr<BusDesktopMotion> motion_;
  std::vector<bool> told_;
};

TEST_F(BusDesktopMotionTest, IsReducedWhereTheDesktopAnimatesNothing) {
  start({.animations = false, .knows_reduced_motion = false});
  EXPECT_TRUE(told({true}));
}

TEST_F(BusDesktopMotionTest, IsReducedWhereTheDesktopSaysSo) {
  start({.reduced_motion = 1});
  EXPECT_TRUE(told({true}));
}

TEST_F(BusDesktopMotionTest, FollowsEveryChange) {
  start({});
  ASSERT_TRUE(asked(2));
  portal_->change_animations(false);
  ASSERT_TRUE(told({true}));
  portal_->change_something_else();
  portal_->change_reduced_motion(1);
  portal_->change_animations(true);
  portal_->change_reduced_motion(0);
  ASSERT_TRUE(told({true, false})) << "reduced until neither switch says so";
  portal_->change_reduced_motion(1);
  EXPECT_TRUE(told({true, false, true}));
}

TEST_F(BusDesktopMotionTest, APortalThatComesLaterIsAskedAndNoneIsStarted) {
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
  EXPECT_TRUE(told({true}));
}

TEST_F(BusDesktopMotionTest, WithoutABusNothingIsTold) {
  listen();
  QCoreApplication::processEvents();
  EXPECT_TRUE(told({}));
}

TEST_F(BusDesktopMotionTest, ABusThatHangsHoldsNobody) {
  start({});
  bus_.freeze();
  const Nanoseconds began = monotonic_now();
  listen();
  QCoreApplication::processEvents();
  motion_.reset();
  EXPECT_LT(monotonic_now() - began, kNanosecondsPerSecond / 2);
  bus_.kill_hard();
}

TEST_F(BusDesktopMotionTest, ABusThatDiesIsLeft) {
  start({.animations = false});
  ASSERT_TRUE(told({true}));
  bus_.kill_hard();
  for (int i = 0; i < 20; ++i) QCoreApplication::processEvents();
  EXPECT_TRUE(told({true}));
}

}  // namespace
}  // namespace tandem

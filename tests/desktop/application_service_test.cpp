// The player as the desktop starts it and opens songs with it.

#include "desktop/desktop_rig.h"
#include "desktop/names.h"

namespace tandem::test {
namespace {

class Application : public DesktopRig {
 protected:
  void SetUp() override {
    DesktopRig::SetUp();
    start();
  }
  // `append` puts the arguments; the name of the error, if any.
  std::string called(const char* method, const std::function<void(sd_bus_message*)>& append) {
    std::string name;
    meanwhile([&](sd_bus* bus) {
      sd_bus_message* call = nullptr;
      sd_bus_error error = SD_BUS_ERROR_NULL;
      sd_bus_message_new_method_call(bus, &call, kApplicationName, kApplicationObject, "org.freedesktop.Application",
                                     method);
      append(call);
      sd_bus_call(bus, call, 0, &error, nullptr);
      if (error.name != nullptr) name = error.name;
      sd_bus_error_free(&error);
      sd_bus_message_unref(call);
    });
    return name;
  }
};

TEST_F(Application, ComesToTheFrontWithTheDesktopsLeave) {
  EXPECT_EQ(called("Activate",
                   [](sd_bus_message* call) {
                     sd_bus_message_append(call, "a{sv}", 2, "other", "u", 7, "desktop-startup-id", "s", "old_TIME1");
                   }),
            "");
  EXPECT_EQ(called("Activate",
                   [](sd_bus_message* call) {
                     sd_bus_message_append(call, "a{sv}", 2, "activation-token", "s", "new", "desktop-startup-id", "s",
                                           "old");
                   }),
            "");
  EXPECT_EQ(raises_, (std::vector<std::string>{"old_TIME1", "new"}));
}

TEST_F(Application, OpensSongsAsADropBringsThem) {
  EXPECT_EQ(called("Open",
                   [](sd_bus_message* call) {
                     sd_bus_message_append(call, "as", 3, "file:///music/a.mp3", "http://example.org/b.mp3",
                                           "file:///music/Side%20B");
                     sd_bus_message_append(call, "a{sv}", 0);
                   }),
            "");
  EXPECT_EQ(drops_, (std::vector<std::vector<std::string>>{{"/music/a.mp3", "/music/Side B"}}));
  EXPECT_EQ(raises_.size(), 1U);
  EXPECT_EQ(remote_.motion(), PanelRemote::Motion::Stopped) << "a drop starts nothing";
}

TEST_F(Application, HasNoActions) {
  EXPECT_EQ(called("ActivateAction",
                   [](sd_bus_message* call) {
                     sd_bus_message_append(call, "s", "dance");
                     sd_bus_message_append(call, "av", 0);
                     sd_bus_message_append(call, "a{sv}", 0);
                   }),
            "org.freedesktop.DBus.Error.InvalidArgs");
}

TEST_F(Application, IsTakenOverByTheSecondPlayerWhenTheFirstEnds) {
  TestPanel panel;
  int activations = 0;
  PanelRemote remote(panel.program, {[] {}, [](const std::vector<std::string>&) {}, {}});
  DesktopServices second(remote, {[&](const std::string&) { ++activations; }, [] {}, [](const std::string&) {}});
  const auto activate = [this] {
    called("Activate", [](sd_bus_message* call) { sd_bus_message_append(call, "a{sv}", 0); });
  };
  activate();
  EXPECT_EQ(raises_.size(), 1U);
  EXPECT_EQ(activations, 0);
  services_.reset();
  meanwhile([](sd_bus* bus) {
    EXPECT_TRUE(wait_until([&] { return sd_bus_get_name_creds(bus, kApplicationName, 0, nullptr) >= 0; }));
  });
  activate();
  EXPECT_EQ(activations, 1);
}

}  // namespace
}  // namespace tandem::test

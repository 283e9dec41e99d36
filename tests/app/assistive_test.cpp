// The program as a screen reader has it: over the bus, and heard in a recording of the sound server.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "app/assistive_fixture.h"
#include "settings/settings_file.h"

namespace tandem::test {
namespace {

class AssistiveProgram : public AssistiveFixture {
 protected:
  void SetUp() override {
    AssistiveFixture::SetUp();
    if (!IsSkipped()) start(factory_settings());
  }
  AssistiveObject object(const std::string& name, const std::string& role) const {
    const auto found = bus->object(name, role);
    if (!found) throw std::runtime_error("no " + role + " " + name);
    return *found;
  }
  AssistiveObject beginning(const std::string& name) const {
    for (const AssistiveObject& each : bus->objects())
      if (each.name.starts_with(name)) return each;
    throw std::runtime_error("nothing begins with " + name);
  }
  bool press(const std::string& name) const { return bus->act(object(name, "push button"), "Press"); }
  bool comes(const std::string& name, const std::string& role) const {
    return wait_until([&] { return bus->object(name, role).has_value(); });
  }
  void add_song() const {
    const std::string song = player->write_song("one.wav", kTone, 20);
    ASSERT_TRUE(press("Load a song"));
    ASSERT_TRUE(player->dialog_shows_up());
    player->answer_dialog('"' + song + '"');
    ASSERT_TRUE(player->dialog_goes_away());
  }
};

TEST_F(AssistiveProgram, EverythingHasANameARoleAndWhatCanBeDoneWithIt) {
  player->key("F3");
  ASSERT_TRUE(wait_until([this] { return object("Grid", "check box").showing; }));
  const std::vector<AssistiveObject> all = bus->objects();
  EXPECT_EQ(all.at(0).role, "frame");
  EXPECT_EQ(all.at(0).name, "Tandem");
  int focusable = 0;
  for (const AssistiveObject& each : all) {
    if (!each.showing) continue;
    EXPECT_NE(each.name, "") << each.role << each.path;
    EXPECT_NE(each.role, "unknown") << each.name;
    if (!each.focusable) continue;
    ++focusable;
    const auto can = [&each](const char* action) {
      return std::find(each.actions.begin(), each.actions.end(), action) != each.actions.end();
    };
    EXPECT_TRUE(can("SetFocus")) << each.name;
    EXPECT_TRUE(can("Press") || (can("Increase") && can("Decrease") && each.value) || each.role == "list") << each.name;
  }
  EXPECT_EQ(focusable, 43);  // the tab chain with list and board
}

TEST_F(AssistiveProgram, ItsListIsFollowed) {
  bus->listen("object:children-changed");
  bus->listen("object:state-changed");  // Qt reports removals only to clients that listen to states too
  const std::string list = object("Playlist", "list").path;
  const auto is_reported = [this, &list](const std::string& what) {
    return wait_until([&] {
      const std::vector<std::string>& heard = bus->heard();
      return std::find(heard.begin(), heard.end(), list + " ChildrenChanged " + what) != heard.end();
    });
  };
  add_song();
  EXPECT_TRUE(is_reported("add"));
  const AssistiveObject line = object("01 - " + player->file("one.wav"), "list item");
  player->double_click(400, 125);  // on the line
  EXPECT_TRUE(is_reported("remove"));
  EXPECT_FALSE(bus->object(line.name, line.role).has_value());
}

TEST_F(AssistiveProgram, SaysWhatPlaysWhileItsWindowIsMinimized) {
  add_song();
  ASSERT_TRUE(press("Minimise"));
  ASSERT_TRUE(press("Play"));
  EXPECT_TRUE(wait_until(
      [this] { return bus->description(object("01 - " + player->file("one.wav"), "list item")) == "playing, 0:20"; }));
}

TEST_F(AssistiveProgram, IsPlayed) {
  add_song();
  const AssistiveObject line = object("01 - " + player->file("one.wav"), "list item");
  EXPECT_TRUE(bus->act(line, "Press"));
  desktop.sound.start_recording();
  EXPECT_TRUE(press("Play"));
  EXPECT_TRUE(wait_until([this] { return find_tone(desktop.sound.recording(), kTone).has_value(); }));
  EXPECT_TRUE(comes("Song: ONE.WAV", "label"));
  EXPECT_TRUE(bus->set_value(object("Volume", "dial"), 16384));
  EXPECT_TRUE(comes("Volume 50 %", "progress bar"));
  EXPECT_TRUE(bus->set_value(beginning("Meter: "), 1));
  EXPECT_TRUE(comes("Left level, dB", "progress bar"));
  EXPECT_TRUE(press("Close"));
  EXPECT_EQ(player->exit_status(), 0);
  EXPECT_EQ(player->errors().find("tandem:"), std::string::npos) << player->errors();
  EXPECT_EQ(lines_of(player->settings()).at(15), "16384");
}

}  // namespace
}  // namespace tandem::test

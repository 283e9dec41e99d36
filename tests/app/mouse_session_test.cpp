// A newcomer's evening by mouse alone: songs are added and played, the equalizer is set, the list is saved, and another
// day it is opened again. A screen reader's view gives where things of the file dialog are.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "app/assistive_fixture.h"
#include "settings/settings_file.h"

namespace tandem::test {
namespace {

constexpr double kClickedTones[] = {800, 2000, 3200};

class MouseSession : public AssistiveFixture {
 protected:
  // Songs where a file dialog begins: at home.
  void write_songs() {
    for (int i = 0; i < 3; ++i) {
      const std::string name = "song " + std::to_string(i + 1) + ".wav";
      std::filesystem::rename(player->write_song(name, kClickedTones[i], 3), desktop.home().file(name));
    }
  }
  std::optional<AssistiveObject> seen(const std::string& name, const std::string& role) const {
    std::optional<AssistiveObject> found;
    for (const AssistiveObject& each : bus->objects())
      if (each.showing && each.name == name && each.role == role) found = each;  // the last: what lies in front
    return found;
  }
  std::string shown() const {
    std::string all;
    for (const AssistiveObject& each : bus->objects())
      if (each.showing) all += "\n" + each.role + ": " + each.name;
    return all;
  }
  void click(const std::string& name, const std::string& role, const std::string& with_key = {}) const {
    std::optional<AssistiveObject> found;
    ASSERT_TRUE(wait_until([&] { return (found = seen(name, role)).has_value(); })) << role << " " << name << shown();
    player->click_screen(found->x, found->y, with_key);
  }
  void add_songs() {
    player->click(kSongKey);
    ASSERT_TRUE(player->dialog_shows_up());
    click("song 1.wav", "tree item");
    click("song 3.wav", "tree item", "shift");
    click("Open", "push button");
    ASSERT_TRUE(player->dialog_goes_away());
    EXPECT_TRUE(
        wait_until([this] { return seen("03 - " + desktop.home().file("song 3.wav"), "list item").has_value(); }));
  }
  void set_equalizer_and_volume() const {
    player->click(kPlaylistKey);     // the equalizer in its place
    player->drag(278, 186, 0, -18);  // the first fader, by 6 dB
    player->click(300, 186, 4);      // the wheel on the second
    player->click(586, 198);         // the groove of the last
    player->drag(235, 137, 0, 75);   // the volume, by half its way
    player->click(kPlaylistKey);
  }
  void save_list() {
    player->click(kSaveListKey);
    ASSERT_TRUE(player->dialog_shows_up());
    player->type("evening");
    click("Save", "push button");
    ASSERT_TRUE(player->dialog_goes_away());
  }
  void open_list() {
    player->click(kOpenListKey);
    ASSERT_TRUE(player->dialog_shows_up());
    click("evening.m3l", "tree item");
    click("Open", "push button");
    ASSERT_TRUE(player->dialog_goes_away());
  }
  void close() {
    player->click(kCloseKey);
    EXPECT_EQ(player->exit_status(), 0);
    EXPECT_EQ(player->errors().find("tandem:"), std::string::npos) << player->errors();
  }
};

TEST_F(MouseSession, SongsAreAddedPlayedShapedSavedAndOpenedAgain) {
  start(factory_settings());
  write_songs();
  ASSERT_NO_FATAL_FAILURE(add_songs());
  desktop.sound.start_recording();
  player->click(kPlayKey);
  EXPECT_TRUE(hears(kClickedTones[0]));
  set_equalizer_and_volume();
  ASSERT_NO_FATAL_FAILURE(save_list());
  close();
  const std::string kept = player->settings();
  EXPECT_EQ(lines_of(kept).at(0), "6");
  EXPECT_EQ(lines_of(kept).at(1), "1");
  EXPECT_EQ(lines_of(kept).at(14), "-4");
  EXPECT_NEAR(std::stoi(lines_of(kept).at(kVolumeLine)), 16384, 1);

  start(kept);
  ASSERT_NO_FATAL_FAILURE(open_list());
  player->double_click(400, 124);  // the first line goes
  player->click(kPlayKey);
  EXPECT_TRUE(hears(kClickedTones[1]));
  EXPECT_TRUE(hears(kClickedTones[2]));
  close();
}

}  // namespace
}  // namespace tandem::test

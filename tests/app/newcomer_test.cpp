// The first minute of someone who has read no manual: a folder is dropped, Space plays it, the wheel over the display
// makes it softer, and the change of songs is seen and heard.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>

#include "app/assistive_fixture.h"
#include "app/dragged_files.h"
#include "app/screen_pixels.h"
#include "settings/settings_file.h"

namespace tandem::test {
namespace {

constexpr double kFirstTone = 800;
constexpr double kSecondTone = 2000;
constexpr double kFirstSeconds = 12;  // of which the last 2.5 overlap with the next by the factory settings
constexpr double kSecondSeconds = 30;

// Near the full orange of a mix: the play mark of the incoming song, its line, the mark of the slider.
bool is_orange(std::uint32_t pixel) {
  const auto near = [pixel](int shift, int wanted) {
    return std::abs(static_cast<int>(pixel >> shift & 0xFF) - wanted) < 40;
  };
  return near(16, 255) && near(8, 128) && near(0, 0);
}

class Newcomer : public AssistiveFixture {
 protected:
  void SetUp() override {
    AssistiveFixture::SetUp();
    if (IsSkipped()) return;
    start(factory_settings());
    desktop.sound.start_recording();
  }
  std::string folder_of_songs() const {
    std::filesystem::create_directory(files.file("record"));
    add_song("first.wav", kFirstTone, kFirstSeconds);
    add_song("second.wav", kSecondTone, kSecondSeconds);
    return files.file("record");
  }
  void add_song(const std::string& name, double tone, double seconds) const {
    std::filesystem::rename(player->write_song(name, tone, seconds), file(name));
  }
  std::string file(const std::string& name) const { return files.file("record") + "/" + name; }
  AssistiveObject waited_for(const std::string& name, const std::string& role) const {
    std::optional<AssistiveObject> found;
    if (!wait_until([&] { return (found = bus->object(name, role)).has_value(); }))
      throw std::runtime_error("no " + role + " " + name);
    return *found;
  }
  bool says(const AssistiveObject& object, const std::string& words) const {
    return wait_until([&] { return bus->description(object).find(words) != std::string::npos; },
                      std::chrono::seconds(20));
  }
  std::string title() const { return desktop.do_tool({"getwindowname", player->window()}); }
  // Of a box of the panel.
  auto orange_pixels(int x, int y, int width, int height) const {
    const auto [left, top] = player->place();
    const std::vector<std::uint32_t> pixels = screen_pixels(left + x, top + y, width, height);
    return std::count_if(pixels.begin(), pixels.end(), is_orange);
  }
  auto orange_in_second_line() const { return orange_pixels(264, 131, 40, 13); }
  auto orange_at_slider() const { return orange_pixels(4, 109, 204, 20); }

  TempDirectory files;
  DraggedFiles dragged{desktop};
};

// What is looked at stands in a pause, so a slow machine has the time for it.
TEST_F(Newcomer, DropsAFolderPressesSpaceTurnsTheWheelAndSeesAChangeOfSongs) {
  ASSERT_TRUE(dragged.drop({folder_of_songs()}));
  const AssistiveObject first = waited_for("01 - " + file("first.wav"), "list item");
  const AssistiveObject second = waited_for("02 - " + file("second.wav"), "list item");
  const AssistiveObject position = waited_for("Song position", "slider");

  player->key("space");
  EXPECT_TRUE(says(first, "playing, 0:12"));
  EXPECT_TRUE(hears(kFirstTone));
  player->key("space");
  EXPECT_TRUE(says(position, "next song at 0:09"));
  EXPECT_NE(title().find("FIRST.WAV"), std::string::npos) << title();
  player->click(430, 60, 5);  // a notch down, over the spectrum
  waited_for("Volume 97 %", "progress bar");
  EXPECT_EQ(orange_in_second_line(), 0);
  EXPECT_EQ(orange_at_slider(), 0) << "the mark is dim until its moment";
  player->key("space");

  ASSERT_TRUE(says(second, "overlapping, 0:30"));
  player->key("space");
  EXPECT_EQ(bus->description(first), "playing, 0:12");
  EXPECT_NE(bus->description(position).find("Mixing: first.wav ends in"), std::string::npos);
  EXPECT_NE(bus->description(position).find("second.wav"), std::string::npos);
  EXPECT_TRUE(wait_until([this] { return orange_in_second_line() > 5; })) << orange_in_second_line();
  EXPECT_TRUE(wait_until([this] { return orange_at_slider() > 5; })) << orange_at_slider();
  player->key("space");

  EXPECT_TRUE(says(second, "playing, 0:30"));
  EXPECT_TRUE(hears(kSecondTone));
  EXPECT_EQ(bus->description(first), "0:12");
  EXPECT_TRUE(wait_until([this] { return orange_in_second_line() == 0; }));
  EXPECT_NE(title().find("SECOND.WAV"), std::string::npos) << title();
}

}  // namespace
}  // namespace tandem::test

// Files and folders dragged from another program and dropped on the window, as from a file manager.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "app/assistive_bus.h"
#include "app/dragged_files.h"
#include "app/real_player.h"
#include "settings/settings_file.h"

namespace tandem::test {
namespace {

using Names = std::vector<std::string>;

class Dropped : public testing::Test {
 protected:
  void SetUp() override {
    if (!AssistiveBus::installed()) GTEST_SKIP() << "at-spi2-core is not installed";
    bus = std::make_unique<AssistiveBus>();
    player = std::make_unique<RealPlayer>(desktop, factory_settings());
    ASSERT_TRUE(player->show_up()) << player->errors();
    ASSERT_TRUE(bus->find("Tandem"));
  }
  std::string song(const std::string& name) const {
    std::filesystem::create_directories(std::filesystem::path(files.file(name)).parent_path());
    std::filesystem::rename(player->write_song("new.wav", 440, 0.5), files.file(name));
    return files.file(name);
  }
  void drop(const Names& paths) { ASSERT_TRUE(dragged.drop(paths)); }
  Names lines() const {
    Names names;
    for (const AssistiveObject& each : bus->objects())
      if (each.role == "list item") names.push_back(each.name);
    return names;
  }

  TempDirectory files;
  Desktop desktop;
  std::unique_ptr<AssistiveBus> bus;
  std::unique_ptr<RealPlayer> player;
  DraggedFiles dragged{desktop};
};

TEST_F(Dropped, AFolderGivesItsSongsInNaturalOrderAndThoseBelow) {
  const std::string tenth = song("record/10 b.wav");
  const std::string second = song("record/2 a.WAV");
  const std::string below = song("record/more/1.wav");
  std::ofstream(files.file("record/cover.jpg")) << "x";
  drop({files.file("record")});
  const Names expected = {"01 - " + second, "02 - " + tenth, "03 - " + below};
  EXPECT_TRUE(wait_until([&] { return lines() == expected; })) << testing::PrintToString(lines());
}

TEST_F(Dropped, SeveralFilesAndFoldersAtOnceComeInNaturalOrder) {
  const std::string file = song("one/b c.wav");
  const std::string first = song("two/1.wav");
  const std::string second = song("three/1.wav");
  drop({file, files.file("two"), files.file("three")});
  const Names expected = {"01 - " + file, "02 - " + second, "03 - " + first};
  EXPECT_TRUE(wait_until([&] { return lines() == expected; })) << testing::PrintToString(lines());
}

}  // namespace
}  // namespace tandem::test

// Files and folders dragged from another program and dropped on the window, as from a file manager.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "app/assistive_bus.h"
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
  // In small steps, so that both programs see the pointer come.
  void drop(const Names& paths) {
    Names command = {TANDEM_DRAG_SOURCE};
    command.insert(command.end(), paths.begin(), paths.end());
    source = ChildProcess(command, files.file("source.log"));
    const auto visible = [this] { return !desktop.do_tool({"search", "--onlyvisible", "--name", "^Source$"}).empty(); };
    ASSERT_TRUE(wait_until(visible));
    Names words = {"mousemove", "1000", "750", "mousedown", "1"};
    for (int step = 1; step <= 40; ++step)
      words.insert(words.end(),
                   {"mousemove", std::to_string(1000 - 15 * step), std::to_string(750 - 15 * step), "sleep", "0.02"});
    words.insert(words.end(), {"sleep", "0.3", "mouseup", "1"});
    desktop.do_tool(words);
  }
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
  ChildProcess source;
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

#include "controls/file_dialog.h"

#include <gtest/gtest.h>

#include "base/runtime_error.h"

namespace tandem {
namespace {

struct OneAnswer : FileDialog {
  explicit OneAnswer(std::string text) : answer(std::move(text)) {}
  std::string answer;
  std::string name_at_show = "never shown";

 protected:
  std::string ask_open() override {
    name_at_show = FileName;
    return answer;
  }
  std::string ask_save() override { return ask_open(); }
};

TEST(FileDialog, TheNameIsEmptiedBeforeEachShow) {
  OneAnswer dialog("/a.mp3");
  dialog.FileName = "/old";
  dialog.ShowOpen();
  EXPECT_EQ(dialog.name_at_show, "");
  EXPECT_EQ(dialog.FileName, "/a.mp3");
}

TEST(FileDialog, CancelIsAnErrorAndLeavesNoName) {
  OneAnswer dialog("");
  dialog.FileName = "/old";
  EXPECT_THROW(dialog.ShowOpen(), RuntimeError);
  EXPECT_EQ(dialog.FileName, "");
  EXPECT_THROW(dialog.ShowSave(), RuntimeError);
}

TEST(FileDialog, ASavedNameWithoutExtensionGetsOne) {
  for (const auto& [given, saved] : {std::pair<std::string, std::string>{"/l/songs", "/l/songs.m3l"},
                                     {"/l/songs.m3l", "/l/songs.m3l"},
                                     {"/l/songs.txt", "/l/songs.txt"},
                                     {"/l.d/songs", "/l.d/songs.m3l"},
                                     {"/l/.hidden", "/l/.hidden.m3l"}}) {
    OneAnswer dialog(given);
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName, saved);
  }
}

TEST(FileDialog, AnOpenedNameStaysAsItIs) {
  OneAnswer dialog("/l/songs");
  dialog.ShowOpen();
  EXPECT_EQ(dialog.FileName, "/l/songs");
}

}  // namespace
}  // namespace tandem

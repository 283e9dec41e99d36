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

TEST(FileDialog, ASavedNameThatDoesNotEndAsAListGetsTheEnding) {
  for (const auto& [given, saved] : {std::pair<std::string, std::string>{"/l/songs", "/l/songs.m3l"},
                                     {"/l/songs.m3l", "/l/songs.m3l"},
                                     {"/l/songs.M3L", "/l/songs.M3L"},
                                     {"/l/songs.txt", "/l/songs.txt.m3l"},
                                     {"/l/songs.list", "/l/songs.list.m3l"},
                                     {"/l/vol. 2", "/l/vol. 2.m3l"},
                                     {"/l.d/songs", "/l.d/songs.m3l"},
                                     {"/l/.hidden", "/l/.hidden.m3l"}}) {
    OneAnswer dialog(given);
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName, saved);
  }
}

TEST(FileDialog, WhatWasChosenIsPreparedBeforeItIsReturned) {
  OneAnswer dialog("/l/songs");
  dialog.prepare = [&dialog](const std::string& result) {
    EXPECT_EQ(result, "/l/songs");
    EXPECT_EQ(dialog.FileName, "");
    return true;
  };
  dialog.ShowOpen();
  EXPECT_EQ(dialog.FileName, "/l/songs");
}

TEST(FileDialog, CancelWhileItIsPreparedIsCancel) {
  OneAnswer dialog("/l/songs");
  dialog.prepare = [](const std::string&) { return false; };
  EXPECT_THROW(dialog.ShowOpen(), RuntimeError);
  EXPECT_EQ(dialog.FileName, "");
}

TEST(FileDialog, AnotherShowMeanwhileIsCancelledAtOnce) {
  OneAnswer dialog("/l/songs");
  int refused = 0;
  dialog.prepare = [&](const std::string&) {
    for (const auto show : {&FileDialog::ShowOpen, &FileDialog::ShowSave}) try {
        (dialog.*show)();
      } catch (const RuntimeError&) {
        ++refused;
      }
    return true;
  };
  dialog.ShowOpen();
  EXPECT_EQ(refused, 2);
  EXPECT_EQ(dialog.FileName, "/l/songs");
  dialog.prepare = nullptr;
  dialog.ShowSave();
  EXPECT_EQ(dialog.FileName, "/l/songs.m3l");
}

TEST(FileDialog, AnOpenedNameStaysAsItIs) {
  OneAnswer dialog("/l/songs");
  dialog.ShowOpen();
  EXPECT_EQ(dialog.FileName, "/l/songs");
}

}  // namespace
}  // namespace tandem

#include "controls/chosen_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tandem {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A result with its NULs shown as bars.
std::string shown(std::string result) {
  for (char& letter : result)
    if (letter == '\0') letter = '|';
  return result;
}
std::vector<std::string> results(const std::vector<std::string>& paths) {
  std::vector<std::string> all;
  for (const std::string& result : dialog_results(paths)) all.push_back(shown(result));
  return all;
}

TEST(ChosenFiles, OneFileIsItsPath) {
  EXPECT_THAT(results({"/m/a.mp3"}), ElementsAre("/m/a.mp3"));
  EXPECT_THAT(results({"/a.mp3"}), ElementsAre("/a.mp3"));
  EXPECT_THAT(results({}), IsEmpty());
}

TEST(ChosenFiles, SeveralOfOneDirectoryStandInDescendingNaturalOrder) {
  EXPECT_THAT(results({"/m/2.mp3", "/m/10.mp3", "/m/1.mp3"}), ElementsAre("/m|10.mp3|2.mp3|1.mp3"));
}

TEST(ChosenFiles, OneResultForEachDirectory) {
  EXPECT_THAT(results({"/b/1.mp3", "/a/1.mp3", "/b/2.mp3"}), ElementsAre("/b|2.mp3|1.mp3", "/a/1.mp3"));
}

TEST(ChosenFiles, OfTooManyTheFirstInNaturalOrderFit) {
  EXPECT_THAT(that_fit({"/m/10.mp3", "/m/9.mp3", "/m/1.mp3"}, 2), ElementsAre("/m/1.mp3", "/m/9.mp3"));
  EXPECT_THAT(that_fit({"/m/10.mp3", "/m/9.mp3"}, 2), ElementsAre("/m/10.mp3", "/m/9.mp3"));
  EXPECT_THAT(that_fit({"/m/10.mp3"}, 0), IsEmpty());
}

TEST(ChosenFiles, AResultNamesItsPathsAsTheSongHandlerReadsThem) {
  for (const std::vector<std::string>& paths :
       {std::vector<std::string>{"/m/a.mp3"}, std::vector<std::string>{"/m/2.mp3", "/m/1.mp3"}})
    EXPECT_EQ(chosen_paths(dialog_results(paths).front()), paths);
  EXPECT_THAT(chosen_paths(dialog_results({"/b.mp3", "/a.mp3"}).front()), ElementsAre("//b.mp3", "//a.mp3"));
}

TEST(ChosenFiles, TheRootKeepsItsSeparator) {
  EXPECT_THAT(results({"/a.mp3", "/b.mp3"}), ElementsAre("/|b.mp3|a.mp3"));
}

}  // namespace
}  // namespace tandem

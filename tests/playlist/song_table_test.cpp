#include "playlist/song_table.h"

#include <gtest/gtest.h>

#include <string>

#include "base/runtime_error.h"
#include "playlist/list_lines.h"
#include "playlist/song_texts.h"

namespace tandem {
namespace {

TEST(SongTable, IndicesRunFromZeroToTwoHundred) {
  SongEntries table;
  table.at(0).SongLength = 1;
  table.at(200).SongLength = 2;
  EXPECT_EQ(table.at(200).SongLength, 2);
  EXPECT_THROW(table.at(201), RuntimeError);
  EXPECT_THROW(table.at(-1), RuntimeError);
  EXPECT_THROW(table.swap(200, 201), RuntimeError);
}

TEST(SongTable, RemovingClosesTheGap) {
  SongEntries table;
  for (int k = 1; k <= 200; ++k) table.at(k) = {"/" + std::to_string(k), k};
  table.mark_removed(3);
  EXPECT_EQ(table.at(3).SongFile, "*");
  EXPECT_EQ(table.at(3).SongLength, 0);
  table.compact();
  EXPECT_EQ(table.at(2).SongFile, "/2");
  EXPECT_EQ(table.at(3).SongFile, "/4");
  EXPECT_EQ(table.at(3).SongLength, 4);
  EXPECT_EQ(table.at(199).SongFile, "/200");
  EXPECT_EQ(table.at(200).SongFile, "");
  EXPECT_EQ(table.at(200).SongLength, 0);
}

TEST(SongTable, TheLastSongMayBeRemoved) {
  SongEntries table;
  for (int k = 1; k <= 200; ++k) table.at(k) = {"/" + std::to_string(k), k};
  table.mark_removed(200);
  table.compact();
  EXPECT_EQ(table.at(199).SongFile, "/199");
  EXPECT_EQ(table.at(200).SongFile, "");
}

TEST(SongTable, CompactingTrimsPathsAndLeavesEntryZero) {
  SongEntries table;
  table.at(0) = {" /zero ", 7};
  table.at(1) = {" /one ", 8};
  table.compact();
  EXPECT_EQ(table.at(0).SongFile, " /zero ");
  EXPECT_EQ(table.at(1).SongFile, "/one");
  EXPECT_EQ(table.at(1).SongLength, 8);
}

TEST(LineText, IsNumberHyphenPath) {
  EXPECT_EQ(LineText(1, "/music/a.mp3"), "01 - /music/a.mp3");
  EXPECT_EQ(LineText(9, "/b"), "09 - /b");
  EXPECT_EQ(LineText(10, "/c"), "10 - /c");
  EXPECT_EQ(LineText(100, "/d"), "100 - /d");
  EXPECT_EQ(LineText(0, ""), "00 - ");
}

TEST(LineRest, TheNumberIsCutAndBlanksAreTrimmed) {
  EXPECT_EQ(line_rest("01 - /a b ", 5), "/a b");
  EXPECT_EQ(line_rest("10 - /a", 4), "/a");
  EXPECT_EQ(line_rest("100 - /a", 5), "/a");
  EXPECT_EQ(line_rest("100 - /a", 4), "- /a");
  EXPECT_EQ(line_rest("01 - ", 5), "");
}

TEST(Paths, LastSeparatorCountsCharacters) {
  EXPECT_EQ(last_separator("01 - /a/b.mp3"), 8);
  EXPECT_EQ(last_separator("/\u00e9/b"), 3);
  EXPECT_EQ(last_separator("b.mp3"), 0);
  EXPECT_EQ(last_separator(""), 0);
  EXPECT_EQ(last_separator("/" + std::string(32766, 'x')), 1);
  EXPECT_THROW(last_separator("/" + std::string(32767, 'x')), RuntimeError);
}

TEST(Paths, HaveFolderAndName) {
  EXPECT_EQ(folder_of("/music/a.mp3"), "/music");
  EXPECT_EQ(folder_of("/a.mp3"), "");
  EXPECT_THROW(folder_of("a.mp3"), RuntimeError);
  EXPECT_THROW(folder_of(""), RuntimeError);
  EXPECT_EQ(name_of("/music/a.mp3"), "a.mp3");
  EXPECT_EQ(name_of("a.mp3"), "a.mp3");
}

TEST(Titles, FromFourteenCharactersOnTheyScroll) {
  EXPECT_FALSE(is_long_title("1234567890.mp"));
  EXPECT_TRUE(is_long_title("1234567890.mp3"));
  EXPECT_FALSE(is_long_title("\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9.mp3"));
  EXPECT_EQ(scroll_gap().size(), 14U);
}

TEST(Titles, BeginBlankWithFourBlanksInFront) {
  EXPECT_TRUE(begins_blank("    a"));
  EXPECT_FALSE(begins_blank("   a"));
}

}  // namespace
}  // namespace tandem

#include "base/text.h"

#include <gtest/gtest.h>

namespace tandem {
namespace {

TEST(Text, CountsCodePoints) {
  EXPECT_EQ(character_count(""), 0U);
  EXPECT_EQ(character_count("abc"), 3U);
  EXPECT_EQ(character_count("\u00e9t\u00e9"), 3U);
  EXPECT_EQ(character_count("\u65e5\u672c"), 2U);
  EXPECT_EQ(character_count("\U0001F3B5!"), 2U);
}

TEST(Text, AnInvalidByteIsOneCharacterAndIsKept) {
  EXPECT_EQ(character_count("\xff\xfe"), 2U);
  EXPECT_EQ(character_count("a\xc3"), 2U);             // cut off in the middle
  EXPECT_EQ(character_count("\xc0\xaf"), 2U);          // overlong
  EXPECT_EQ(character_count("\xed\xa0\x80"), 3U);      // surrogate
  EXPECT_EQ(character_count("\xf4\x90\x80\x80"), 4U);  // beyond the last code point
  EXPECT_EQ(without_first("\xff"
                          "abc",
                          1),
            "abc");
  EXPECT_EQ(first_characters("\xff"
                             "abc",
                             2),
            "\xff"
            "a");
}

TEST(Text, CutsAtCharactersNotAtBytes) {
  EXPECT_EQ(first_characters("\u00e9t\u00e9", 2), "\u00e9t");
  EXPECT_EQ(without_first("\u00e9t\u00e9", 2), "\u00e9");
}

TEST(Text, CutsOfMoreThanThereIs) {
  EXPECT_EQ(first_characters("ab", 5), "ab");
  EXPECT_EQ(without_first("ab", 5), "");
  EXPECT_EQ(without_first("", 1), "");
}

TEST(Text, TrimsBlanksAtBothEndsOnly) {
  EXPECT_EQ(trimmed("  a b  "), "a b");
  EXPECT_EQ(trimmed("   "), "");
  EXPECT_EQ(trimmed("\ta\t"), "\ta\t");
}

TEST(Text, ANumberHasABlankInThePlaceOfTheSign) {
  EXPECT_EQ(number_text(0), " 0");
  EXPECT_EQ(number_text(12), " 12");
  EXPECT_EQ(number_text(-3), "-3");
}

TEST(Text, ASongNumberHasTwoDigitsAtLeast) {
  EXPECT_EQ(song_number_text(0), "00");
  EXPECT_EQ(song_number_text(1), "01");
  EXPECT_EQ(song_number_text(9), "09");
  EXPECT_EQ(song_number_text(10), "10");
  EXPECT_EQ(song_number_text(100), "100");
}

TEST(Text, ANameBeginsAfterTheLastSeparator) {
  EXPECT_EQ(name_begin("/a/b.mp3"), 3U);
  EXPECT_EQ(name_begin("b.mp3"), 0U);
  EXPECT_EQ(name_begin("/"), 1U);
  EXPECT_EQ(name_begin("C:\\b.mp3"), 0U);  // a backslash is an ordinary character
}

TEST(Text, PatternsMatchInAnyCaseOfLetters) {
  EXPECT_EQ(any_case("*.mp3;*.Wav"), "*.[mM][pP]3;*.[wW][aA][vV]");
  EXPECT_EQ(any_case("*.\u00e9"), "*.\u00e9");
}

}  // namespace
}  // namespace tandem

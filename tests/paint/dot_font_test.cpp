#include "paint/text/dot_font.h"

#include <gtest/gtest.h>

#include <QFont>
#include <QFontMetrics>
#include <bit>

namespace tandem {
namespace {

TEST(DotFont, HasLettersAndFigures) {
  EXPECT_EQ(dot_glyph(U'A'), (DotGlyph{0x7E, 0x11, 0x11, 0x11, 0x7E}));
  EXPECT_EQ(dot_glyph(U'0'), (DotGlyph{0x3E, 0x51, 0x49, 0x45, 0x3E}));
  EXPECT_EQ(dot_glyph(U':'), (DotGlyph{0, 0x36, 0x36, 0, 0}));
  EXPECT_EQ(dot_glyph(U' '), (DotGlyph{0, 0, 0, 0, 0}));
}

TEST(DotFont, EveryPrintableAsciiCharacterHasItsOwn) {
  for (char32_t c = 33; c < 127; ++c) {
    EXPECT_NE(dot_glyph(c), dot_glyph(U' ')) << static_cast<int>(c);
  }
}

TEST(DotFont, SmallLettersShowAsCapitals) {
  EXPECT_EQ(dot_glyph(U'z'), dot_glyph(U'Z'));
  EXPECT_EQ(dot_glyph(U'ç'), dot_glyph(U'Ç'));
  EXPECT_EQ(dot_glyph(U'ã'), dot_glyph(U'Ã'));
  EXPECT_NE(dot_glyph(U'Ã'), dot_glyph(U'A')) << "an accent of its own";
  EXPECT_EQ(dot_glyph(U'ß'), dot_glyph(U'ẞ'));
  EXPECT_NE(dot_glyph(U'ß'), dot_glyph(U'S')) << "STRAẞE is not STRASE";
}

TEST(DotFont, GreekAndCyrillicHaveTheirLetters) {
  for (char32_t c = U'Α'; c <= U'Ω'; ++c)
    EXPECT_TRUE(c == 0x3A2 || has_dot_glyph(c)) << static_cast<int>(c);  // which is not a letter
  for (char32_t c = U'А'; c <= U'Я'; ++c) EXPECT_TRUE(has_dot_glyph(c)) << static_cast<int>(c);
  EXPECT_EQ(dot_glyph(U'д'), dot_glyph(U'Д'));
  EXPECT_NE(dot_glyph(U'Д'), dot_glyph(U'Л'));
  EXPECT_EQ(dot_glyph(U'ή'), dot_glyph(U'Η')) << "an accented vowel shows its letter";
  EXPECT_EQ(dot_glyph(U'ς'), dot_glyph(U'Σ'));
  EXPECT_EQ(dot_glyph(U'Н'), dot_glyph(U'H')) << "the same shape";
}

TEST(DotFont, OtherAccentsShowTheBaseLetter) {
  EXPECT_EQ(dot_glyph(U'ǫ'), dot_glyph(U'O'));
  EXPECT_EQ(dot_glyph(U'\uFF21'), dot_glyph(U'A')) << "the wide form of A";
}

TEST(DotFont, KnowsWhatItLacks) {
  for (const char32_t c : {U'\u65E5', U'\U0001F3B5', U'\uFFFD', U'\u05D0'}) EXPECT_FALSE(has_dot_glyph(c));
  EXPECT_TRUE(has_dot_glyph(U' '));
}

// The font's own letter, where the desktop has one: the sign for what it lacks is the one of a code point that is none.
TEST(FineGlyph, IsTheLetterOfTheFontWhereThereIsOne) {
  int drawn = 0;
  for (const char32_t c : {U'\u05D0', U'\u0645', U'\u0E01', U'\u65E5', U'\u0416', U'\u2603'}) {
    const bool known = QFontMetrics(QFont()).inFontUcs4(c);
    EXPECT_EQ(fine_glyph(c) == fine_glyph(U'\uFDD0'), !known) << static_cast<int>(c);
    drawn += known ? 1 : 0;
  }
  if (drawn == 0) GTEST_SKIP() << "no font of this desktop has any of the letters";
}

TEST(FineGlyph, IsNeitherEmptyNorABoxAndStaysInItsRows) {
  for (const char32_t c : {U'\u65E5', U'\U0001F3B5', U'\uFDD0', U'\u05D0', U'\u0645'}) {
    const FineGlyph& glyph = fine_glyph(c);
    int dots = 0;
    for (const auto column : glyph) {
      EXPECT_LT(column, 1 << 14);
      dots += std::popcount(column);
    }
    EXPECT_GT(dots, 5) << static_cast<int>(c);
    EXPECT_FALSE(glyph.front() == glyph.back() && std::popcount(glyph.front()) > 9) << "a hollow box";
  }
}

TEST(DotFont, NoGlyphLeavesItsSevenRows) {
  for (char32_t c = 32; c < 0x500; ++c) {
    for (const auto column : dot_glyph(c)) EXPECT_LT(column, 0x80) << static_cast<int>(c);
  }
}

}  // namespace
}  // namespace tandem

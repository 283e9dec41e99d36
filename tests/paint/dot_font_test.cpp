#include "paint/text/dot_font.h"

#include <gtest/gtest.h>

namespace tandem {
namespace {

constexpr DotGlyph kHollow = {0x7F, 0x41, 0x41, 0x41, 0x7F};

TEST(DotFont, HasLettersAndFigures) {
  EXPECT_EQ(dot_glyph(U'A'), (DotGlyph{0x7E, 0x11, 0x11, 0x11, 0x7E}));
  EXPECT_EQ(dot_glyph(U'0'), (DotGlyph{0x3E, 0x51, 0x49, 0x45, 0x3E}));
  EXPECT_EQ(dot_glyph(U':'), (DotGlyph{0, 0x36, 0x36, 0, 0}));
  EXPECT_EQ(dot_glyph(U' '), (DotGlyph{0, 0, 0, 0, 0}));
}

TEST(DotFont, EveryPrintableAsciiCharacterHasItsOwn) {
  for (char32_t c = 33; c < 127; ++c) {
    EXPECT_NE(dot_glyph(c), kHollow) << static_cast<int>(c);
    EXPECT_NE(dot_glyph(c), dot_glyph(U' ')) << static_cast<int>(c);
  }
}

TEST(DotFont, SmallLettersShowAsCapitals) {
  EXPECT_EQ(dot_glyph(U'z'), dot_glyph(U'Z'));
  EXPECT_EQ(dot_glyph(U'ç'), dot_glyph(U'Ç'));
  EXPECT_EQ(dot_glyph(U'ã'), dot_glyph(U'Ã'));
  EXPECT_NE(dot_glyph(U'Ã'), dot_glyph(U'A')) << "an accent of its own";
}

TEST(DotFont, OtherAccentsShowTheBaseLetter) {
  EXPECT_EQ(dot_glyph(U'ő'), dot_glyph(U'O'));
  EXPECT_EQ(dot_glyph(U'č'), dot_glyph(U'C'));
  EXPECT_EQ(dot_glyph(U'ß'), dot_glyph(U'S'));
  EXPECT_EQ(dot_glyph(U'\uFF21'), dot_glyph(U'A')) << "the wide form of A";
}

TEST(DotFont, WhatIsLeftShowsAHollowBox) {
  EXPECT_EQ(dot_glyph(U'\u65E5'), kHollow);
  EXPECT_EQ(dot_glyph(U'\U0001F3B5'), kHollow);
  EXPECT_EQ(dot_glyph(U'\uFFFD'), kHollow);
}

TEST(DotFont, NoGlyphLeavesItsSevenRows) {
  for (char32_t c = 32; c < 256; ++c) {
    for (const auto column : dot_glyph(c)) EXPECT_LT(column, 0x80) << static_cast<int>(c);
  }
}

}  // namespace
}  // namespace tandem

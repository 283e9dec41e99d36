#include "paint/text/led_label.h"

#include <gtest/gtest.h>

#include "paint/strokes/palette.h"
#include "paint/text/dot_font.h"
#include "sketch.h"

namespace tandem {
namespace {

using namespace Qt::StringLiterals;

constexpr int kScale = 4;

LedLabelState label_of(const QString& text, int cells) {
  return {.text = text, .cells = cells, .pitch = 2, .colour = palette::kWhite, .dark_dots = palette::kWhiteDots};
}

QImage picture_of(const LedLabelState& look, double scale = kScale) {
  return sketch({100, 22}, scale, [&](QPainter& painter) { paint_led_label(painter, {4, 4}, look); });
}

// A column of seven dots as bits, read from the middles of the dots.
int dots_at(const QImage& picture, int column, int pitch = 2) {
  int bits = 0;
  for (int row = 0; row < 7; ++row) {
    const QPointF middle((4 + column * pitch + .43 * pitch) * kScale, (4 + row * pitch + .43 * pitch) * kScale);
    bits |= picture.pixel(middle.toPoint()) == palette::kWhite ? 1 << row : 0;
  }
  return bits;
}

TEST(LedLabel, ShowsItsGlyphs) {
  const QImage picture = picture_of(label_of(u"A5"_s, 2));
  for (int column = 0; column < 5; ++column) {
    EXPECT_EQ(dots_at(picture, column), dot_glyph(U'A')[static_cast<std::size_t>(column)]);
    EXPECT_EQ(dots_at(picture, 6 + column), dot_glyph(U'5')[static_cast<std::size_t>(column)]);
  }
}

TEST(LedLabel, LitAndDarkDotsAreExact) {
  const QImage picture = picture_of(label_of(u"I"_s, 2));
  const auto dot = [&](int column, int row) {
    return picture.pixel(QPointF((4 + column * 2 + .86) * kScale, (4 + row * 2 + .86) * kScale).toPoint());
  };
  EXPECT_EQ(dot(2, 3), palette::kWhite);
  EXPECT_EQ(dot(8, 3), palette::kWhiteDots) << "the second cell is empty and out of the glow";
}

TEST(LedLabel, CutsWhatHasNoCell) {
  EXPECT_EQ(picture_of(label_of(u"ABCDEF"_s, 3)), picture_of(label_of(u"ABC"_s, 3)));
  EXPECT_EQ(picture_of(label_of(u"AB"_s, 3)), picture_of(label_of(u"AB "_s, 3)));
}

TEST(LedLabel, CountsCodePoints) {
  const QImage picture = picture_of(label_of(u"\U0001F3B5B"_s, 2));
  for (int column = 0; column < 5; ++column)
    EXPECT_EQ(dots_at(picture, 6 + column), dot_glyph(U'B')[static_cast<std::size_t>(column)]);
  EXPECT_EQ(led_text_columns(u"\U0001F3B5B"_s), 12);
}

TEST(LedLabel, SmallCaptionsHaveNoDarkDotsAndNoGlow) {
  LedLabelState look = label_of(u"I"_s, 2);
  look.pitch = 1;
  look.dark_dots.reset();
  const QImage picture = picture_of(look);
  EXPECT_EQ(picture.pixel(static_cast<int>(4.5 * kScale), static_cast<int>(7.5 * kScale)), 0xFF000000);
  EXPECT_EQ(picture.pixel(static_cast<int>(6.5 * kScale), static_cast<int>(7.5 * kScale)), palette::kWhite);
}

TEST(LedLabel, ScrollsByWholeDotsRoundTheRing) {
  const QString ring = u"SONG  "_s;
  for (int moved = 0; moved < 6 * 6; ++moved) {
    LedLabelState look = label_of(ring, 3);
    look.scroll = moved;
    const QImage picture = picture_of(look);
    for (int column = 0; column < 3 * 6 - 1; ++column) {
      const int at = (column + moved) % 36;
      const DotGlyph& glyph = dot_glyph(ring[at / 6].unicode());
      const int wanted = at % 6 == 5 ? 0 : glyph[static_cast<std::size_t>(at % 6)];
      EXPECT_EQ(dots_at(picture, column), wanted) << "moved " << moved << " column " << column;
    }
    EXPECT_EQ(dots_at(picture, 18), 0) << "nothing right of the label, moved " << moved;
  }
}

TEST(LedLabel, ARingTurnsForEver) {
  LedLabelState look = label_of(u"SONG  "_s, 3);
  look.scroll = 7;
  const QImage once = picture_of(look);
  look.scroll = 7 + 36 * 1000;
  EXPECT_EQ(picture_of(look), once);
}

TEST(LedLabel, GlowOfNeighboursDoesNotAddUp) {
  // Full columns on both sides of the gap; the glow between them is that of one stroke.
  const QImage picture = picture_of(label_of(u"HH"_s, 2));
  const int y = static_cast<int>((4 + 3 * 2 + .86) * kScale);
  const int gap = static_cast<int>((4 + 5 * 2 - .14 + .1) * kScale);
  for (int x = gap; x < gap + kScale; ++x) {
    EXPECT_LE(qRed(picture.pixel(x, y)), 255 * (1 - .9 * .78) + 2) << "at most one stroke of 10 % and one of 22 %";
  }
}

TEST(LedLabel, AnyScaleShowsAllDots) {
  for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
    const QImage picture = picture_of(label_of(u"8888"_s, 4), scale);
    EXPECT_FALSE(picture.isNull());
    const QImage dark = picture_of(label_of(u"    "_s, 4), scale);
    EXPECT_NE(picture, dark) << scale;
  }
}

LedLabelState title_of(const QString& text, int scroll) {
  LedLabelState look = label_of(text, 4);
  look.unbroken = true;
  look.scroll = scroll;
  return look;
}

bool is_dark_dot(const QImage& picture, int column, int row) {
  const QPointF middle((4 + column * 2 + .86) * kScale, (4 + row * 2 + .86) * kScale);
  const QRgb pixel = picture.pixel(middle.toPoint());
  return pixel != palette::kWhite && qRed(pixel) >= qRed(palette::kWhiteDots);
}

TEST(RunningTitle, TheDarkMatrixStandsStillAndHasNoGaps) {
  for (const int scroll : {0, 1, 4, 17}) {
    const QImage picture = picture_of(title_of(u"-       "_s, scroll));
    for (int column = 0; column < 4 * 6 - 1; ++column)
      EXPECT_TRUE(is_dark_dot(picture, column, 0)) << column << " moved " << scroll;
  }
}

TEST(RunningTitle, TheLightRunsByWholeColumns) {
  const QString ring = u"SONG  "_s;
  for (int moved = 0; moved < 36; ++moved) {
    const QImage picture = picture_of(title_of(ring, moved));
    for (int column = 0; column < 4 * 6 - 1; ++column) {
      const int at = (column + moved) % 36;
      const DotGlyph& glyph = dot_glyph(ring[at / 6].unicode());
      const int wanted = at % 6 == 5 ? 0 : glyph[static_cast<std::size_t>(at % 6)];
      EXPECT_EQ(dots_at(picture, column), wanted) << "moved " << moved << " column " << column;
    }
  }
}

TEST(RunningTitle, BeginsWithItsFirstLetter) {
  EXPECT_EQ(picture_of(title_of(u"   SONG"_s, 0)), picture_of(title_of(u"SONG   "_s, 0)));
}

TEST(RunningTitle, ShowsLettersThatTheDotFontLacks) {
  const QImage blank = picture_of(title_of(u"        "_s, 0));
  const QImage first = picture_of(title_of(u"\u65E5       "_s, 0));
  EXPECT_NE(first, blank);
  EXPECT_EQ(first.copy(76, 0, 300, 88), blank.copy(76, 0, 300, 88)) << "within its cell";
  for (const QString& text : {u"\u05D0       "_s, u"\u0645       "_s}) {
    const QImage last = picture_of(title_of(text, 0));
    EXPECT_NE(last, blank);
    EXPECT_EQ(last.copy(0, 0, 148, 88), blank.copy(0, 0, 148, 88)) << "which is read from the right end";
  }
}

}  // namespace
}  // namespace tandem

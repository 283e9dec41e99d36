#include "paint/text/reading_order.h"

#include <gtest/gtest.h>

namespace tandem {
namespace {

using namespace Qt::StringLiterals;

QString shown(const QString& line) {
  const QList<uint> letters = reading_order(line).letters;
  return QString::fromUcs4(reinterpret_cast<const char32_t*>(letters.data()), letters.size());
}

TEST(ReadingOrder, LeavesLeftToRightTextAlone) {
  EXPECT_EQ(shown(u"01 - Winter Sun (mix) [2].mp3"_s), u"01 - Winter Sun (mix) [2].mp3"_s);
  EXPECT_EQ(shown(u"Песня, ΤΟ ΛΙΜΑΝΙ, 港"_s), u"Песня, ΤΟ ΛΙΜΑΝΙ, 港"_s);
  EXPECT_EQ(shown(QString()), QString());
}

TEST(ReadingOrder, TurnsRightToLeftRuns) {
  EXPECT_EQ(shown(u"\u05D0\u05D1\u05D2"_s), u"\u05D2\u05D1\u05D0"_s);
  EXPECT_EQ(shown(u"05 - \u05D0\u05D1 \u05D2\u05D3.MP3"_s), u"MP3.\u05D3\u05D2 \u05D1\u05D0 - 05"_s)
      << "and the line with them, whose first letter is one of them";
  EXPECT_EQ(shown(u"Song \u05D0\u05D1 \u05D2\u05D3 live"_s), u"Song \u05D3\u05D2 \u05D1\u05D0 live"_s)
      << "alone in a line of the other direction";
}

TEST(ReadingOrder, FiguresInARunReadFromLeftToRight) {
  EXPECT_EQ(shown(u"\u05D0 12 \u05D1"_s), u"\u05D1 12 \u05D0"_s);
  EXPECT_EQ(shown(u"\u05D0 (12) \u05D1"_s), u"\u05D1 (12) \u05D0"_s) << "and brackets embrace them";
}

TEST(ReadingOrder, ArabicLettersJoinTheirNeighbours) {
  // beh alone; beh, beh; beh, alef, beh
  EXPECT_EQ(shown(u"\u0628"_s), u"\uFE8F"_s);
  EXPECT_EQ(shown(u"\u0628\u0628"_s), u"\uFE90\uFE91"_s);
  EXPECT_EQ(shown(u"\u0628\u0627\u0628"_s), u"\uFE8F\uFE8E\uFE91"_s) << "alef does not join the next letter";
  EXPECT_EQ(shown(u"\u0628\u0628\u0628"_s), u"\uFE90\uFE92\uFE91"_s);
}

TEST(ReadingOrder, MarksAreComposedOrLeftOut) {
  EXPECT_EQ(shown(u"E\u0301"_s), u"\u00C9"_s);
  EXPECT_EQ(shown(u"\u05D0\u05B8"_s), u"\u05D0"_s);
  EXPECT_EQ(shown(u"a\u200Db"_s), u"ab"_s);
}

TEST(ReadingOrder, VowelSignsAndTonesOfThaiAndDevanagariKeepAPlace) {
  EXPECT_EQ(shown(u"\u0E17\u0E35\u0E48"_s), u"\u0E17\u0E35\u0E48"_s) << "thi, with its vowel and its tone";
  EXPECT_EQ(shown(u"\u0917\u0940\u0924 \u0938\u0941\u0928"_s), u"\u0917\u0940\u0924 \u0938\u0941\u0928"_s) << "git sun";
}

TEST(ReadingOrder, FiguresKeepTheirSeparators) {
  EXPECT_EQ(shown(u"\u05D0 3.14 \u05D1"_s), u"\u05D1 3.14 \u05D0"_s);
  EXPECT_EQ(shown(u"\u05D0 12:30 \u05D1"_s), u"\u05D1 12:30 \u05D0"_s);
}

TEST(ReadingOrder, KnowsWhereReadingBegins) {
  EXPECT_FALSE(reading_order(u"01 - Song \u05D0"_s).right_to_left);
  EXPECT_TRUE(reading_order(u"01 - \u05D0 Song"_s).right_to_left);
  EXPECT_FALSE(reading_order(u"01"_s).right_to_left);
}

constexpr int kColumns = 6;

TEST(RingColumn, BeginsWithTheFirstLetterAtTheLeftAndRunsToTheLeft) {
  const DisplayLine line = reading_order(u"  abcdefgh "_s);
  EXPECT_EQ(ring_column(line, 4, kColumns, 0), 2 * kColumns);
  EXPECT_EQ(ring_column(line, 4, kColumns, 5), 2 * kColumns + 5);
  EXPECT_EQ(ring_column(line, 4, kColumns, 11 * kColumns), 2 * kColumns) << "once round";
}

TEST(RingColumn, OfHebrewBeginsAtTheRightAndRunsToTheRight) {
  const DisplayLine line = reading_order(u"  \u05D0\u05D1\u05D2\u05D3\u05D4\u05D5\u05D6\u05D7 "_s);
  const int start = ring_column(line, 4, kColumns, 0);
  EXPECT_EQ(start % kColumns, 0);
  EXPECT_EQ(line.letters[start / kColumns + 3], 0x5D0U) << "the first letter in the window's last cell";
  EXPECT_EQ(ring_column(line, 4, kColumns, 5), start - 5);
  EXPECT_EQ(ring_column(line, 4, kColumns, 11 * kColumns), start) << "once round";
}

TEST(RingColumn, OfNothingOrBlanksIsTheBeginning) {
  EXPECT_EQ(ring_column(reading_order(QString()), 4, kColumns, 7), 0);
  EXPECT_EQ(ring_column(reading_order(u"   "_s), 4, kColumns, 0), 0);
}

}  // namespace
}  // namespace tandem

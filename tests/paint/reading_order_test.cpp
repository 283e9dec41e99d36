#include "paint/text/reading_order.h"

#include <gtest/gtest.h>

namespace tandem {
namespace {

using namespace Qt::StringLiterals;

QString shown(const QString& line) {
  const QList<uint> letters = reading_order(line);
  return QString::fromUcs4(reinterpret_cast<const char32_t*>(letters.data()), letters.size());
}

TEST(ReadingOrder, LeavesLeftToRightTextAlone) {
  EXPECT_EQ(shown(u"01 - Winter Sun (mix) [2].mp3"_s), u"01 - Winter Sun (mix) [2].mp3"_s);
  EXPECT_EQ(shown(u"Песня, ΤΟ ΛΙΜΑΝΙ, 港"_s), u"Песня, ΤΟ ΛΙΜΑΝΙ, 港"_s);
  EXPECT_EQ(shown(QString()), QString());
}

TEST(ReadingOrder, TurnsRightToLeftRuns) {
  EXPECT_EQ(shown(u"\u05D0\u05D1\u05D2"_s), u"\u05D2\u05D1\u05D0"_s);
  EXPECT_EQ(shown(u"05 - \u05D0\u05D1 \u05D2\u05D3.MP3"_s), u"05 - \u05D3\u05D2 \u05D1\u05D0.MP3"_s)
      << "the words too, but not what stands around them";
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
  EXPECT_EQ(reading_order(u"\u05D0\u05B8"_s).size(), 1);
  EXPECT_EQ(reading_order(u"a\u200Db"_s).size(), 2);
}

TEST(ReadingOrder, CountsLeadingBlanks) {
  EXPECT_EQ(leading_blanks(reading_order(u"   ab "_s)), 3);
  EXPECT_EQ(leading_blanks(reading_order(u"   "_s)), 0);
}

}  // namespace
}  // namespace tandem

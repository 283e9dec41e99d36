#include "paint/controls/song_list.h"

#include <gtest/gtest.h>

#include <cmath>

#include "paint/strokes/palette.h"
#include "paint/text/elide.h"
#include "sketch.h"

namespace tandem {
namespace {

using namespace Qt::StringLiterals;

const QRectF kBox(0, 0, 293, 141);

double width_by_units(const QString& text) { return static_cast<double>(text.size()); }

QString elided(const QString& path, double room) { return elide_directories(path, room, width_by_units); }

TEST(ElideDirectories, LeavesAPathThatFits) { EXPECT_EQ(elided(u"/home/ana/a.mp3"_s, 15), u"/home/ana/a.mp3"_s); }

TEST(ElideDirectories, DropsTheLastDirectoriesFirst) {
  const QString path = u"/home/ana/Music/Glass Garden/Winter Sun.mp3"_s;
  EXPECT_EQ(elided(path, 40), u"/home/ana/Music/…/Winter Sun.mp3"_s);
  EXPECT_EQ(elided(path, 31), u"/home/ana/…/Winter Sun.mp3"_s);
  EXPECT_EQ(elided(path, 22), u"/home/…/Winter Sun.mp3"_s);
  EXPECT_EQ(elided(path, 17), u"/…/Winter Sun.mp3"_s);
}

TEST(ElideDirectories, NeverCutsTheFileName) {
  EXPECT_EQ(elided(u"/home/ana/A very long name.mp3"_s, 22), u"…/A very long name.mp3"_s);
  EXPECT_EQ(elided(u"/home/ana/A very long name.mp3"_s, 21), u"A very long name.mp3"_s);
  EXPECT_EQ(elided(u"/home/ana/A very long name.mp3"_s, 5), u"A very long name.mp3"_s);
  EXPECT_EQ(elided(u"A very long name.mp3"_s, 5), u"A very long name.mp3"_s);
}

QString cut_name(const QString& name, double room) { return elide_file_name(name, room, width_by_units); }

TEST(ElideFileName, LeavesANameThatFits) { EXPECT_EQ(cut_name(u"Winter Sun.mp3"_s, 14), u"Winter Sun.mp3"_s); }

TEST(ElideFileName, KeepsItsBeginAndItsLastLettersWithTheExtension) {
  const QString name = u"An evening in the glass garden, side 2.mp3"_s;
  EXPECT_EQ(cut_name(name, 30), u"An evening in the…, side 2.mp3"_s);
  EXPECT_EQ(cut_name(name, 26), u"An evening in…, side 2.mp3"_s);
  EXPECT_EQ(cut_name(name, 25), u"An evening in the gl….mp3"_s) << "no room for both";
}

TEST(ElideFileName, KeepsItsExtensionAtLeast) {
  const QString name = u"An evening in the glass garden, side 2.mp3"_s;
  EXPECT_EQ(cut_name(name, 16), u"An evening….mp3"_s);
  EXPECT_EQ(cut_name(name, 0), u"….mp3"_s);
}

TEST(ElideFileName, WhatIsLongAfterAPointIsNoExtension) {
  EXPECT_EQ(cut_name(u"No. 5 without an end to it"_s, 20), u"No. 5 witho…nd to it"_s);
  EXPECT_EQ(cut_name(u".hidden"_s, 4), u".hi…"_s);
}

TEST(ElideFileName, CountsTheExtensionInLettersAsTheyAreRead) {
  EXPECT_EQ(cut_name(u"An evening in the glass garden.mp\u03013"_s, 12), u"An eve….mp\u03013"_s);
  const QString clefs = u"."_s + QString::fromUcs4(U"\U0001D11E").repeated(3);  // seven units, four letters
  EXPECT_EQ(cut_name(u"An evening in the glass garden"_s + clefs, 12), u"An e…"_s + clefs);
}

TEST(ElideFileName, KeepsABlankAtItsBegin) {
  EXPECT_EQ(cut_name(u" An evening in the glass garden, side 2.mp3"_s, 27), u" An evening in…, side 2.mp3"_s);
}

TEST(ElideFileName, NeverCutsALetterInTwo) {
  const QString clef = QString::fromUcs4(U"\U0001D11E");  // two units
  const QString accented = u"a\u0301"_s;                  // two units and one letter as well
  for (const QString& letter : {clef, accented}) {
    const QString name = letter.repeated(40) + u".mp3"_s;
    for (int room = 5; room < 84; ++room) {
      const QString cut = cut_name(name, room);
      EXPECT_LE(cut.size(), std::max<qsizetype>(room, 5)) << room;
      EXPECT_EQ(QString(cut).remove(letter), u"….mp3"_s) << room;
    }
  }
}

// However long a name is, and however deep its folder, it is measured a few times only.
TEST(Elide, MeasuresSeldom) {
  int measured = 0;
  const TextWidth width = [&measured](const QString& text) {
    ++measured;
    return static_cast<double>(text.size());
  };
  elide_directories(u"/a"_s.repeated(20) + u"/name.mp3"_s, 5, width);
  EXPECT_LE(measured, 20 + 2);
  measured = 0;
  elide_file_name(QString(100'000, u'n') + u".mp3"_s, 50, width);
  EXPECT_LE(measured, 17 + 2) << "the number halves its doubt every time";
}

TEST(SongList, RowsStandThirteenPixelsApart) {
  EXPECT_EQ(list_row_box(kBox, 0, 10), QRectF(2, 5, 289, 13)) << "from edge to edge of the glass";
  EXPECT_EQ(list_row_box(kBox, 0, 11), QRectF(2, 5, 280, 13)) << "up to the scroll bar";
  EXPECT_EQ(list_row_box(kBox, 9).bottom(), 5 + 130);
}

TEST(SongList, TheThumbRunsTheWholeTrack) {
  const QRectF track = list_track_box(kBox);
  EXPECT_EQ(list_thumb_box(kBox, 0, 12).top(), track.top());
  EXPECT_NEAR(list_thumb_box(kBox, 2, 12).bottom(), track.bottom(), 1e-9);
  EXPECT_NEAR(list_thumb_box(kBox, 0, 12).height(), track.height() * 10 / 12, 1e-9);
  EXPECT_EQ(list_thumb_box(kBox, 0, 5000).height(), 16);
  EXPECT_NEAR(list_thumb_box(kBox, 4990, 5000).bottom(), track.bottom(), 1e-9);
}

QImage list_picture(const SongListState& look) {
  return sketch({293, 141}, 1, [&](QPainter& painter) { paint_song_list(painter, kBox, look); });
}

bool is_dark(QRgb pixel) { return qRed(pixel) < 40 && qGreen(pixel) < 40 && qBlue(pixel) < 40; }
bool is_aqua(QRgb pixel) { return qRed(pixel) < 60 && qGreen(pixel) > 200 && qBlue(pixel) > 200; }

TEST(SongList, HidesTheScrollBarWhenAllFits) {
  SongListState look;
  look.count = 10;
  EXPECT_EQ(list_picture(look).pixel(286, 70), 0xFF000000);
  look.count = 11;
  EXPECT_NE(list_picture(look).pixel(286, 70), 0xFF000000);
}

TEST(SongList, MarksTheSelectedRow) {
  SongListState look;
  look.rows = {u"01 - /a/b.mp3"_s, u"02 - /a/c.mp3"_s};
  look.count = 2;
  look.selected = 1;
  const QImage picture = list_picture(look);
  EXPECT_TRUE(is_aqua(picture.pixel(2, 24)));
  EXPECT_TRUE(is_dark(picture.pixel(2, 11)));
  look.top = 1;  // the view starts at the second song: the mark moves up
  EXPECT_TRUE(is_aqua(list_picture(look).pixel(2, 11)));
}

TEST(SongList, ANameWiderThanItsLineShowsItsEnd) {
  const auto row_of = [](const QString& name) {
    SongListState look;
    look.rows = {u"01 - /a/"_s + name};
    look.count = 1;
    return list_picture(look).copy(0, 5, 293, 13);
  };
  const QString middle = QString(100, u'n');
  EXPECT_NE(row_of(u"One "_s + middle + u" side 1.mp3"_s), row_of(u"One "_s + middle + u" side 2.mp3"_s));
  EXPECT_NE(row_of(u"One "_s + middle + u".mp3"_s), row_of(u"One "_s + middle + u".wav"_s));
  EXPECT_NE(row_of(u"One "_s + middle + u".mp3"_s), row_of(u"Two "_s + middle + u".mp3"_s));
  EXPECT_EQ(row_of(u"One "_s + middle + u".mp3"_s), row_of(u"One "_s + middle + u"n.mp3"_s));
}

TEST(SongList, TextNeverReachesTheScrollBar) {
  SongListState look;
  look.rows = {u"01 - /a/"_s + QString(400, u'W') + u".mp3"_s};
  look.count = 11;
  look.top = 1;  // the thumb stands lower
  const QImage picture = list_picture(look);
  for (int x : {283, 284, 290}) {
    for (int y = 5; y < 15; ++y) EXPECT_TRUE(is_dark(picture.pixel(x, y))) << x << ' ' << y;
  }
}

SongListState three_songs() {
  SongListState look;
  look.rows = {u"01 - /a/b.mp3"_s, u"02 - /a/c.mp3"_s, u"03 - /a/d.mp3"_s};
  look.count = 3;
  return look;
}

QRect row_box(int row) { return list_row_box(kBox, row, 3).toRect(); }

/// How many pixels of a box are nearly this colour.
int pixels_like(const QImage& picture, const QRect& box, QRgb colour) {
  int found = 0;
  const auto near = [](int a, int b) { return std::abs(a - b) < 50; };
  for (int y = box.top(); y <= box.bottom(); ++y) {
    for (int x = box.left(); x <= box.right(); ++x) {
      const QRgb pixel = picture.pixel(x, y);
      found +=
          near(qRed(pixel), qRed(colour)) && near(qGreen(pixel), qGreen(colour)) && near(qBlue(pixel), qBlue(colour))
              ? 1
              : 0;
    }
  }
  return found;
}

TEST(SongList, MarksTheLinesThatSoundWhateverIsSelected) {
  SongListState look = three_songs();
  look.selected = 0;
  look.playing = 1;
  look.overlapping = 2;
  const QImage picture = list_picture(look);
  EXPECT_EQ(pixels_like(picture, row_box(0), palette::kLime), 0);
  EXPECT_GT(pixels_like(picture, row_box(1), palette::kLime), 5);
  EXPECT_GT(pixels_like(picture, row_box(2), palette::kOrange), 5);
}

TEST(SongList, LengthsStandAtTheRightWhereTheNameLeavesRoom) {
  SongListState look = three_songs();
  const QImage without = list_picture(look);
  look.lengths = {u"4:31"_s, u""_s};
  const QImage with = list_picture(look);
  const QRect end(250, 5, 41, 13);
  EXPECT_NE(with.copy(end), without.copy(end));
  EXPECT_EQ(with.copy(end.translated(0, 13)), without.copy(end.translated(0, 13))) << "an unknown length";
  look.rows[0] = u"01 - /a/"_s + QString(100, u'n') + u".mp3"_s;
  const QImage long_name = list_picture(look);
  look.lengths.clear();
  EXPECT_EQ(long_name, list_picture(look)) << "the name goes before the length";
}

TEST(SongList, AnEmptyListSaysHowToFillIt) {
  const QImage empty = list_picture({});
  EXPECT_GT(pixels_like(empty, {80, 30, 130, 80}, palette::kLegendUnchosen), 50);
  SongListState drop;
  drop.drop = u"3 songs"_s;
  EXPECT_EQ(pixels_like(list_picture(drop), {80, 50, 130, 60}, palette::kLegendUnchosen), 0) << "not while files hover";
}

int blue_pixels(const QImage& picture, const QRect& box) {
  int found = 0;
  for (int y = box.top(); y <= box.bottom(); ++y)
    for (int x = box.left(); x <= box.right(); ++x) found += qBlue(picture.pixel(x, y)) > 100 ? 1 : 0;
  return found;
}

TEST(SongList, FilesThatHoverShowAFrameAndWhereTheyWillGo) {
  SongListState look = three_songs();
  const QRect below(20, 5 + 3 * 13 + 1, 250, 4);
  EXPECT_EQ(blue_pixels(list_picture(look), below), 0);
  look.drop = u"3 songs"_s;
  const QImage picture = list_picture(look);
  EXPECT_GT(blue_pixels(picture, below), 200) << "a line below the last song";
  EXPECT_GT(blue_pixels(picture, {3, 40, 2, 60}), 40) << "the left side of the frame";
}

TEST(SongList, TheCountOfFilesOverAFullListHidesNoMoreThanTheLastLength) {
  SongListState look;
  for (int i = 1; i <= kListRows; ++i) {
    look.rows += u"%1 - /music/a.mp3"_s.arg(i, 2, 10, QChar(u'0'));
    look.lengths += u"3:45"_s;
  }
  look.count = 12;
  look.drop = u"3 songs"_s;
  const QImage few = list_picture(look);
  look.drop = u"30 songs, 4 folders"_s;
  const QImage many = list_picture(look);
  EXPECT_NE(few, many);
  const QRect above(QPoint(), QSize(few.width(), 5 + 9 * 13 - 1));
  EXPECT_EQ(few.copy(above), many.copy(above));
}

}  // namespace
}  // namespace tandem

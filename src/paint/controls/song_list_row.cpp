#include "paint/controls/song_list_row.h"

#include <QHash>
#include <algorithm>
#include <utility>

#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/text/caption.h"
#include "paint/text/elide.h"

namespace tandem {

using palette::kWhite;

namespace {

constexpr double kTextInset = 8;
constexpr double kBaseline = 10.2;
constexpr double kNumberColumn = 34;
constexpr double kWideNumberColumn = 40;  // from song 100 on
constexpr double kLengthInset = 6;
constexpr double kLengthGap = 8;  // at least between name and length

struct LineColours {
  QRgb number;
  QRgb directory;
  QRgb file;
  QRgb length;
};

LineColours colours_of(const SongListRow& row) {
  if (row.selected) return {kWhite, palette::kListSelectedDirectory, kWhite, palette::kListSelectedDirectory};
  if (row.playing || row.overlapping) return {kWhite, palette::kListDirectory, kWhite, palette::kListLength};
  return {palette::kLegendUnchosen, palette::kListDirectory, palette::kListFile, palette::kListLength};
}

void paint_ground(QPainter& painter, const QRectF& box, const SongListRow& row) {
  if (row.selected) {
    fill_box(painter, box, QColor::fromRgb(palette::kListSelected));
    fill_box(painter, box, downward(box, {{0, kWhite, .16}, {1, kWhite, 0}}));
    fill_box(painter, {box.left(), box.top() + 1.5, 2, box.height() - 3}, QColor::fromRgb(palette::kAqua), 1);
  } else if (row.odd) {
    fill_box(painter, box, faded(kWhite, .035));
  }
}

struct RowText {
  QString number;
  QString directory;
  QString file;
  QString length;      // empty if there is no room for it
  double column;       // where the directory begins, px from the row's left
  double name;         // and the file
  double length_left;  // and the length
};

// A line is "number - path"; three-digit numbers need a wider column. The file name goes before the length.
RowText fitted(const QString& line, const QString& length, double row_width) {
  const qsizetype dash = line.indexOf(QStringLiteral(" - "));
  const qsizetype cut = dash < 0 ? 0 : dash + 3;
  const double column = cut > 5 ? kWideNumberColumn : kNumberColumn;
  const double whole = row_width - column - 3;
  const double length_left = row_width - kLengthInset - caption_width(length);
  const auto width = [](const QString& text) { return caption_width(text); };
  const QString file = line.mid(std::max(cut, line.lastIndexOf(u'/') + 1));
  const bool both = !length.isEmpty() && column + width(file) + kLengthGap <= length_left;
  const double room = both ? length_left - kLengthGap - column : whole;
  const QString path = elide_directories(line.mid(cut), room, width);
  const qsizetype name = path.lastIndexOf(u'/') + 1;
  const QString directory = path.left(name);
  return {line.left(cut),
          directory,
          name > 0 ? path.mid(name) : elide_file_name(path, room, width),
          both ? length : QString(),
          column,
          column + caption_width(directory),
          length_left};
}

// Finding what fits takes far longer than drawing it, and a line is drawn many times: at every turn of the wheel that
// leaves it in view, and at every move of the selection.
const RowText& kept_text(const SongListRow& row, double row_width) {
  constexpr qsizetype kMost = 80;  // eight views of the list
  using Key = std::pair<std::pair<QString, QString>, double>;
  static QHash<Key, RowText> texts;
  const Key key{{row.line, row.length}, row_width};
  if (!texts.contains(key)) {
    if (texts.size() >= kMost) texts.clear();
    texts.insert(key, fitted(row.line, row.length, row_width));
  }
  return texts[key];
}

void paint_play_mark(QPainter& painter, const QPointF& at, QRgb colour) {
  const QPainterPath triangle = polygon_path({at, at + QPointF(5.6, 3.2), at + QPointF(0, 6.4)});
  stroke_path(painter, triangle, faded(colour, .2), 3.6);
  fill_path(painter, triangle, QColor::fromRgb(colour));
}

void paint_text(QPainter& painter, const QRectF& box, const SongListRow& row) {
  const RowText& text = kept_text(row, box.width());
  const LineColours colours = colours_of(row);
  const double baseline = box.top() + kBaseline;
  const bool sounds = row.playing || row.overlapping;
  const QString number = sounds ? text.number.left(text.number.indexOf(u' ')) : text.number;
  draw_caption(painter, {box.left() + kTextInset, baseline}, number, {.colour = colours.number});
  draw_caption(painter, {box.left() + text.column, baseline}, text.directory, {.colour = colours.directory});
  draw_caption(painter, {box.left() + text.name, baseline}, text.file, {.colour = colours.file});
  draw_caption(painter, {box.left() + text.length_left, baseline}, text.length, {.colour = colours.length});
  if (sounds) {
    paint_play_mark(painter, {box.left() + text.column - 11, box.top() + 3.3},
                    row.playing ? palette::kLime : palette::kOrange);
  }
}

}  // namespace

void paint_song_list_row(QPainter& painter, const QRectF& box, const SongListRow& row) {
  painter.save();
  painter.setClipRect(box, Qt::IntersectClip);
  paint_ground(painter, box, row);
  paint_text(painter, box, row);
  painter.restore();
}

}  // namespace tandem

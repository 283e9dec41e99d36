#include "paint/controls/song_list.h"

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

constexpr double kTextInset = 7;
constexpr double kBaseline = 10.2;
constexpr double kThumbLeast = 16;

struct RowColours {
  QRgb number;
  QRgb directory;
  QRgb file;
};

constexpr RowColours kPlain{palette::kLegendUnchosen, palette::kListDirectory, palette::kListFile};
constexpr RowColours kChosen{palette::kWhite, palette::kListSelectedDirectory, palette::kWhite};

void paint_row_ground(QPainter& painter, const QRectF& row, bool chosen, bool odd) {
  if (chosen) {
    fill_box(painter, row, QColor::fromRgb(palette::kListSelected), 2);
    fill_box(painter, row, downward(row, {{0, kWhite, .16}, {1, kWhite, 0}}), 2);
    fill_box(painter, {row.left(), row.top() + 1.5, 2, row.height() - 3}, QColor::fromRgb(palette::kAqua), 1);
  } else if (odd) {
    fill_box(painter, row, faded(kWhite, .025));
  }
}

struct RowText {
  QString number;
  QString directory;
  QString file;
  double column;  // where the directory begins, px from the row's left
  double name;    // and the file
};

// A line is "number - path"; three-digit numbers need a wider column.
RowText fitted(const QString& line, double row_width) {
  const qsizetype dash = line.indexOf(QStringLiteral(" - "));
  const qsizetype cut = dash < 0 ? 0 : dash + 3;
  const double column = cut > 5 ? 39 : 33;
  const double room = row_width - column - 3;
  const auto width = [](const QString& text) { return caption_width(text); };
  const QString path = elide_directories(line.mid(cut), room, width);
  const qsizetype name = path.lastIndexOf(u'/') + 1;
  const QString directory = path.left(name);
  return {line.left(cut), directory, name > 0 ? path.mid(name) : elide_file_name(path, room, width), column,
          column + caption_width(directory)};
}

// Finding what fits takes far longer than drawing it, and a line is drawn many times: at every turn of the wheel that
// leaves it in view, and at every move of the selection.
const RowText& kept_text(const QString& line, double row_width) {
  constexpr qsizetype kMost = 8 * kListRows;
  using Key = std::pair<QString, double>;
  static QHash<Key, RowText> texts;
  const auto found = texts.constFind({line, row_width});
  if (found != texts.cend()) return *found;
  if (texts.size() >= kMost) texts.clear();
  return *texts.insert({line, row_width}, fitted(line, row_width));
}

void paint_row_text(QPainter& painter, const QRectF& row, const QString& line, const RowColours& colours) {
  const RowText& text = kept_text(line, row.width());
  const double baseline = row.top() + kBaseline;
  draw_caption(painter, {row.left() + kTextInset, baseline}, text.number, {.colour = colours.number});
  draw_caption(painter, {row.left() + text.column, baseline}, text.directory, {.colour = colours.directory});
  draw_caption(painter, {row.left() + text.name, baseline}, text.file, {.colour = colours.file});
}

void paint_scroll_bar(QPainter& painter, const QRectF& box, const SongListState& look) {
  if (look.count <= kListRows) return;
  const QRectF thumb = list_thumb_box(box, look.top, look.count);
  fill_box(painter, list_track_box(box), faded(kWhite, .06), 3.5);
  fill_box(painter, thumb, QColor::fromRgb(0xFF6C747C), 3.5);
  const QRectF sheen = thumb.adjusted(.5, .5, -.5, -.5);
  fill_box(painter, sheen, rightward(sheen, {{0, kWhite, .22}, {1, palette::kBlack, .2}}), 3);
}

}  // namespace

QRectF list_row_box(const QRectF& box, int row) {
  return {box.left() + 3, box.top() + 5 + row * kListRowHeight, box.width() - 15, kListRowHeight};
}

QRectF list_track_box(const QRectF& box) { return {box.right() - 11, box.top() + 4, 7, box.height() - 8}; }

QRectF list_thumb_box(const QRectF& box, int top, int count) {
  const QRectF track = list_track_box(box);
  const double height = std::max(kThumbLeast, track.height() * kListRows / std::max(count, kListRows));
  const int steps = std::max(1, count - kListRows);
  return {track.left(), track.top() + (track.height() - height) * top / steps, track.width(), height};
}

void paint_song_list(QPainter& painter, const QRectF& box, const SongListState& look) {
  for (int i = 0; i < kListRows && i < look.rows.size(); ++i) {
    const QRectF row = snapped(painter, list_row_box(box, i));
    const bool chosen = look.top + i == look.selected;
    painter.save();
    painter.setClipRect(row, Qt::IntersectClip);
    paint_row_ground(painter, row, chosen, i % 2 != 0);
    paint_row_text(painter, row, look.rows[i], chosen ? kChosen : kPlain);
    painter.restore();
  }
  paint_scroll_bar(painter, box, look);
  if (look.interaction.focused) paint_focus_ring(painter, box, 3);
}

}  // namespace tandem

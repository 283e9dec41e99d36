#include "paint/controls/song_list.h"

#include <algorithm>

#include "paint/controls/song_list_row.h"
#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/text/caption.h"

namespace tandem {

using palette::kWhite;

namespace {

constexpr double kThumbLeast = 16;
constexpr double kScrollBar = 9;  // that rows leave free, with the gap
constexpr QRgb kHintTray = 0xFF7D858D;

SongListRow row_of(const SongListState& look, int row) {
  const int index = look.top + row;
  return {.line = look.rows[row],
          .length = look.lengths.value(row),
          .selected = index == look.selected,
          .odd = row % 2 != 0,
          .playing = index == look.playing,
          .overlapping = index == look.overlapping};
}

void paint_scroll_bar(QPainter& painter, const QRectF& box, const SongListState& look) {
  if (look.count <= kListRows) return;
  const QRectF thumb = list_thumb_box(box, look.top, look.count);
  fill_box(painter, list_track_box(box), faded(kWhite, .06), 3.5);
  fill_box(painter, thumb, QColor::fromRgb(0xFF6C747C), 3.5);
  const QRectF sheen = thumb.adjusted(.5, .5, -.5, -.5);
  fill_box(painter, sheen, rightward(sheen, {{0, kWhite, .22}, {1, palette::kBlack, .2}}), 3);
}

// A tray with an arrow into it, and two words.
void paint_hint(QPainter& painter, const QRectF& box) {
  const QPointF at(box.center().x(), box.top() + 58);
  QPainterPath tray(at + QPointF(0, -18));
  tray.lineTo(at + QPointF(0, -5));
  tray.moveTo(at + QPointF(-5.5, -10.5));
  tray.lineTo(at + QPointF(0, -5));
  tray.lineTo(at + QPointF(5.5, -10.5));
  tray.moveTo(at + QPointF(-12, -4));
  tray.lineTo(at + QPointF(-12, 3));
  tray.quadTo(at + QPointF(-12, 5), at + QPointF(-10, 5));
  tray.lineTo(at + QPointF(10, 5));
  tray.quadTo(at + QPointF(12, 5), at + QPointF(12, 3));
  tray.lineTo(at + QPointF(12, -4));
  stroke_path(painter, tray, QColor::fromRgb(kHintTray), 1.6, Qt::RoundCap);
  draw_caption(painter, at + QPointF(0, 22), QString(kListHint),
               {.size = 11, .colour = palette::kLegendUnchosen, .bold = true}, Anchor::Middle);
  draw_caption(painter, at + QPointF(0, 36), QString(kListHintBelow), {.colour = palette::kListLength}, Anchor::Middle);
}

void paint_drop_frame(QPainter& painter, const QRectF& box) {
  const QRectF frame = box.adjusted(4, 4, -4, -4);
  fill_box(painter, box.adjusted(2, 2, -2, -2), faded(palette::kFocus, .05));
  frame_box(painter, frame, faded(palette::kFocus, .14), 3, 2);
  frame_box(painter, frame, faded(palette::kFocus, .9), 1.2, 2);
}

// Below the line where the songs will go, or where there is no room on a plate in place of the last length.
void paint_drop_count(QPainter& painter, const QRectF& box, double line, const QString& count) {
  const CaptionStyle style{.colour = palette::kListDrop};
  if (line + 22 < box.bottom()) {
    draw_caption(painter, {box.left() + 17, line + 14}, count, style);
    return;
  }
  const double width = caption_width(count, style) + 12;
  const QRectF row = list_row_box(box, kListRows - 1);
  const QRectF plate(row.right() - 1 - width, row.top() - .5, width, kListRowHeight - 1);
  fill_box(painter, plate, QColor::fromRgb(palette::kGlassTop), 3);
  frame_box(painter, plate.adjusted(.5, .5, -.5, -.5), faded(palette::kFocus, .5), 1, 2.5);
  draw_caption(painter, plate.bottomLeft() + QPointF(6, -2.8), count, style);
}

// A frame while files are dragged over the list, and a line with a dot where they will go.
void paint_drop(QPainter& painter, const QRectF& box, const SongListState& look) {
  paint_drop_frame(painter, box);
  const double below =
      box.top() + 8 + static_cast<double>(std::min<qsizetype>(look.rows.size(), kListRows)) * kListRowHeight;
  const double line = std::min(below, box.bottom() - 7);
  if (look.count > 0) {
    const double left = box.left() + 9;
    const double width = box.width() - 18;
    fill_box(painter, {left, line - .5, width, 3}, faded(palette::kFocus, .16), 1.5);
    fill_box(painter, {left, line + .4, width, 1.2}, QColor::fromRgb(palette::kFocus));
    fill_disc(painter, {left + 1, line + 1}, 2.6, QColor::fromRgb(palette::kFocus));
  }
  paint_drop_count(painter, box, line, *look.drop);
}

}  // namespace

QRectF list_row_box(const QRectF& box, int row, int count) {
  const double bar = count > kListRows ? kScrollBar : 0;
  return {box.left() + 2, box.top() + 5 + row * kListRowHeight, box.width() - 4 - bar, kListRowHeight};
}

QRectF list_track_box(const QRectF& box) { return {box.right() - 11, box.top() + 4, 7, box.height() - 8}; }

QRectF list_thumb_box(const QRectF& box, int top, int count) {
  const QRectF track = list_track_box(box);
  const double height = std::max(kThumbLeast, track.height() * kListRows / std::max(count, kListRows));
  const int steps = std::max(1, count - kListRows);
  return {track.left(), track.top() + (track.height() - height) * top / steps, track.width(), height};
}

void paint_song_list(QPainter& painter, const QRectF& box, const SongListState& look) {
  for (int i = 0; i < kListRows && i < look.rows.size(); ++i)
    paint_song_list_row(painter, snapped(painter, list_row_box(box, i, look.count)), row_of(look, i));
  paint_scroll_bar(painter, box, look);
  if (look.drop) {
    paint_drop(painter, box, look);
  } else if (look.count == 0) {
    paint_hint(painter, box);
  }
  if (look.interaction.focused) paint_focus_ring(painter, box, 3);
}

}  // namespace tandem

// The song list: ten rows of 13 px on black glass, the directory dim and the file name bright. UI thread.
#pragma once

#include <QPainter>
#include <QStringList>

#include "paint/strokes/interaction_state.h"

namespace tandem {

inline constexpr int kListRows = 10;
inline constexpr double kListRowHeight = 13;

struct SongListState {
  QStringList rows;   ///< the lines in view, from `top` on, at most ten; each "number - path"
  int top = 0;        ///< index of the first line in view
  int count = 0;      ///< lines in the whole list
  int selected = -1;  ///< index in the whole list
  InteractionState interaction{};
};

/// Rows and scroll bar (hidden when all lines fit) over glass that is painted already; the list has no shine.
void paint_song_list(QPainter& painter, const QRectF& box, const SongListState& look);
/// Box of row 0..9 of the view, and of the scroll bar's track and thumb.
QRectF list_row_box(const QRectF& box, int row);
QRectF list_track_box(const QRectF& box);
QRectF list_thumb_box(const QRectF& box, int top, int count);

}  // namespace tandem

// The song list: ten rows of 13 px on black glass, the directory dim and the file name bright. UI thread.
#pragma once

#include <QPainter>
#include <QStringList>
#include <optional>

#include "paint/strokes/interaction_state.h"

namespace tandem {

inline constexpr int kListRows = 10;
inline constexpr double kListRowHeight = 13;

/// What a list without lines says, in two lines.
inline constexpr const char* kListHint = "Drop songs here";
inline constexpr const char* kListHintBelow = "or press SONG";

struct SongListState {
  QStringList rows;               ///< the lines in view, from `top` on, at most ten; each "number - path"
  QStringList lengths{};          ///< "m:ss" of these lines, empty where it is not known; may be shorter than `rows`
  int top = 0;                    ///< index of the first line in view
  int count = 0;                  ///< lines in the whole list; a list without lines says how to fill it
  int selected = -1;              ///< indices in the whole list, -1 for none
  int playing = -1;               ///< the song of the counter
  int overlapping = -1;           ///< the other one while two sound
  std::optional<QString> drop{};  ///< while files are dragged over the list: how many, for example "3 songs"
  InteractionState interaction{};
};

/// Rows and scroll bar (hidden when all lines fit) over glass that is painted already; no shine, which would take
/// contrast from the upper lines.
void paint_song_list(QPainter& painter, const QRectF& box, const SongListState& look);
/// Box of row 0..9 of the view of a list of `count` lines: from edge to edge of the glass, or up to the scroll bar.
QRectF list_row_box(const QRectF& box, int row, int count = kListRows + 1);
/// Boxes of the scroll bar's track and thumb.
QRectF list_track_box(const QRectF& box);
QRectF list_thumb_box(const QRectF& box, int top, int count);

}  // namespace tandem

// One row of the song list. UI thread.
#pragma once

#include <QPainter>
#include <QString>

namespace tandem {

struct SongListRow {
  QString line;    ///< "number - path"
  QString length;  ///< "m:ss" or empty
  bool selected = false;
  bool odd = false;          ///< every second row is a little lighter
  bool playing = false;      ///< the song of the counter
  bool overlapping = false;  ///< the other one while two sound
};

/// Ground, number (with a play mark in place of its dash for a song that sounds), path and length. Nothing is painted
/// outside `box`. Texts that were fitted to the width are kept.
void paint_song_list_row(QPainter& painter, const QRectF& box, const SongListRow& row);

}  // namespace tandem

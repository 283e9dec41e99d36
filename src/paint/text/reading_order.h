// The order in which a line's letters stand on a display that shows one letter after the other from left to right.
// Any thread, no state.
#pragma once

#include <QList>
#include <QString>

namespace tandem {

struct DisplayLine {
  QList<uint> letters{};       ///< code points from left to right
  bool right_to_left = false;  ///< its first letter with a direction is Hebrew or Arabic: read from the right end
};

/// Orders a line by the Unicode bidirectional algorithm (UAX 9, through FriBidi), which also mirrors brackets and gives
/// Arabic letters the form that their neighbours ask for. A letter and its marks are composed to one where Unicode has
/// it; other marks take no place and are left out, but for the vowel signs and tones of the scripts of India and
/// South-East Asia, which follow their letter in a place of their own.
DisplayLine reading_order(const QString& line);

/// Of a line that runs as a ring through a window of `window` letters: which of its dot columns stands at the window's
/// left edge. It begins with the first letter that is no blank, at the left edge or, read from right to left, at the
/// right edge; `moved` columns later it has gone that far to the left or to the right. columns: of a letter with its
/// gap.
int ring_column(const DisplayLine& line, int window, int columns, int moved);

}  // namespace tandem

// The order in which a line's letters stand on a display that shows one letter after the other from left to right.
#pragma once

#include <QList>
#include <QString>

namespace tandem {

/// Code points from left to right: composed letters instead of a letter with its marks, runs of Hebrew or Arabic
/// reversed with the figures in them left as they are, brackets in them mirrored, Arabic letters in the form that their
/// neighbours ask for. A simplified form of the Unicode bidirectional algorithm (UAX 9) with left to right as the
/// line's own direction.
QList<uint> reading_order(const QString& line);

/// How many blanks stand before the first letter; 0 if there is none.
int leading_blanks(const QList<uint>& letters);

}  // namespace tandem

#include "paint/text/reading_order.h"

#include <fribidi.h>

#include <QChar>
#include <algorithm>

namespace tandem {

namespace {

/// From Devanagari to Burmese, and Khmer: their vowels and tones are signs over or under a letter, and without them a
/// word cannot be read.
bool writes_vowels_as_signs(uint letter) {
  const QChar::Script script = QChar::script(letter);
  return (script >= QChar::Script_Devanagari && script <= QChar::Script_Myanmar) || script == QChar::Script_Khmer;
}

/// Accents and points that are drawn over their neighbour take no place of their own.
bool is_mark(uint letter) {
  const QChar::Category category = QChar::category(letter);
  return (category == QChar::Mark_NonSpacing && !writes_vowels_as_signs(letter)) || category == QChar::Other_Format;
}

bool is_blank(uint letter) { return letter == U' '; }

/// Blanks before the first letter, at the end where reading begins; 0 if there is no letter.
int leading_blanks(const DisplayLine& line) {
  const auto count = [](const auto& begin, const auto& end) {
    const auto first = std::find_if_not(begin, end, is_blank);
    return first == end ? 0 : static_cast<int>(first - begin);
  };
  return line.right_to_left ? count(line.letters.rbegin(), line.letters.rend())
                            : count(line.letters.begin(), line.letters.end());
}

}  // namespace

DisplayLine reading_order(const QString& line) {
  QList<uint> logical = line.normalized(QString::NormalizationForm_C).toUcs4();
  logical.removeIf(is_mark);
  if (logical.isEmpty()) return {};
  DisplayLine shown{QList<uint>(logical.size()), false};
  FriBidiParType direction = FRIBIDI_PAR_ON;
  const auto length = static_cast<FriBidiStrIndex>(logical.size());
  // It fails only where memory is out.
  if (fribidi_log2vis(logical.data(), length, &direction, shown.letters.data(), nullptr, nullptr, nullptr) == 0)
    return {logical, false};
  shown.letters.removeIf(is_mark);  // what a ligature has taken in
  shown.right_to_left = FRIBIDI_IS_RTL(direction);
  return shown;
}

int ring_column(const DisplayLine& line, int window, int columns, int moved) {
  const auto letters = static_cast<int>(line.letters.size());
  const int ring = letters * columns;
  if (ring == 0) return 0;
  const int blanks = leading_blanks(line);
  const int left = line.right_to_left ? (letters - blanks - window) * columns - moved : blanks * columns + moved;
  return (left % ring + ring) % ring;
}

}  // namespace tandem

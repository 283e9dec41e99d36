#include "paint/text/reading_order.h"

#include <QChar>
#include <QHash>
#include <algorithm>

namespace tandem {

namespace {

bool is_right_to_left(uint letter) {
  const QChar::Direction direction = QChar::direction(letter);
  return direction == QChar::DirR || direction == QChar::DirAL;
}

bool is_figure(uint letter) {
  const QChar::Direction direction = QChar::direction(letter);
  return direction == QChar::DirEN || direction == QChar::DirAN;
}

/// Letters that are drawn over their neighbour take no place of their own.
bool is_mark(uint letter) {
  return QChar::category(letter) == QChar::Mark_NonSpacing || QChar::category(letter) == QChar::Other_Format;
}

/// Presentation forms by letter and form: Unicode lists each with its plain letter as decomposition.
const QHash<std::pair<uint, int>, uint>& arabic_forms() {
  static const QHash<std::pair<uint, int>, uint> forms = [] {
    QHash<std::pair<uint, int>, uint> table;
    for (uint form = 0xFB50; form <= 0xFEFC; ++form) {
      const QString plain = QChar::decomposition(form);
      if (plain.size() == 1) table.insert({plain[0].unicode(), static_cast<int>(QChar::decompositionTag(form))}, form);
    }
    return table;
  }();
  return forms;
}

bool joins_next(uint letter) {
  const QChar::JoiningType type = QChar::joiningType(letter);
  return type == QChar::Joining_Dual || type == QChar::Joining_Left || type == QChar::Joining_Causing;
}

bool joins_previous(uint letter) { return joins_next(letter) || QChar::joiningType(letter) == QChar::Joining_Right; }

/// In reading order, before it is reversed.
void shape_arabic(QList<uint>& letters) {
  const QList<uint> plain = letters;
  for (qsizetype i = 0; i < plain.size(); ++i) {
    const bool before = i > 0 && joins_next(plain[i - 1]) && joins_previous(plain[i]);
    const bool after = i + 1 < plain.size() && joins_next(plain[i]) && joins_previous(plain[i + 1]);
    const QChar::Decomposition form =
        before ? (after ? QChar::Medial : QChar::Final) : (after ? QChar::Initial : QChar::Isolated);
    letters[i] = arabic_forms().value({plain[i], static_cast<int>(form)}, plain[i]);
  }
}

void reverse_run(QList<uint>::iterator begin, QList<uint>::iterator end) {
  std::reverse(begin, end);
  for (auto at = begin; at != end; ++at) *at = QChar::mirroredChar(*at);
  for (auto at = begin; at != end;) {  // figures read from left to right
    const auto first = std::find_if(at, end, is_figure);
    at = std::find_if_not(first, end, is_figure);
    std::reverse(first, at);
  }
}

}  // namespace

QList<uint> reading_order(const QString& line) {
  QList<uint> letters = line.normalized(QString::NormalizationForm_C).toUcs4();
  letters.removeIf(is_mark);
  shape_arabic(letters);
  for (auto at = letters.begin(); at != letters.end();) {
    const auto begin = std::find_if(at, letters.end(), is_right_to_left);
    // A run goes on to its last letter before one of the other direction.
    auto end = begin;
    for (at = begin; at != letters.end() && QChar::direction(*at) != QChar::DirL; ++at)
      if (is_right_to_left(*at)) end = at + 1;
    reverse_run(begin, end);
  }
  return letters;
}

int leading_blanks(const QList<uint>& letters) {
  const auto first = std::find_if(letters.begin(), letters.end(), [](uint letter) { return letter != U' '; });
  return first == letters.end() ? 0 : static_cast<int>(first - letters.begin());
}

}  // namespace tandem

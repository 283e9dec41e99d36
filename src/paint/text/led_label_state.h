// What a dot-matrix label shows. A value; any thread.
#pragma once

#include <QRgb>
#include <QString>
#include <optional>

namespace tandem {

struct LedLabelState {
  QString text{};  ///< a scrolling text is a ring: it carries the blanks between its end and its next beginning
  int cells = 5;
  int pitch = 2;  ///< px from dot to dot: 1, 2 or 3; at 1 the dots touch and do not glow
  QRgb colour = 0xFFFFFFFF;
  std::optional<QRgb> dark_dots{};  ///< none: unlit dots do not show
  bool unbroken = false;            ///< the dark dots are one field without gaps between cells, and never move
  /// Whole dot columns that the ring has moved from its first letter that is no blank, to the left, or to the right if
  /// the text is read from right to left; none: the first cells stand still.
  std::optional<int> scroll{};
};

}  // namespace tandem

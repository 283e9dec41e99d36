// Times as one says and reads them: minutes without a leading zero. Any thread, no state.
#pragma once

#include <QString>
#include <cstdint>

namespace tandem {

inline QString minutes_and_seconds(std::int64_t milliseconds) {
  const std::int64_t seconds = milliseconds / 1000;
  return QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QChar(u'0'));
}

}  // namespace tandem

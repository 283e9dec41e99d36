#include "paint/song_list.h"

namespace tandem {

QString elide_directories(const QString& path, double room, const std::function<double(const QString&)>& width) {
  if (width(path) <= room) return path;
  QStringList parts = path.split(u'/');
  const QString file = parts.takeLast();
  const QString cut = QStringLiteral("/\u2026/") + file;
  if (parts.isEmpty()) return path;
  parts.removeLast();
  while (!parts.isEmpty()) {
    QString shorter = parts.join(u'/') + cut;
    if (width(shorter) <= room) return shorter;
    parts.removeLast();
  }
  return QStringLiteral("\u2026/") + file;
}

}  // namespace tandem

#include "paint/text/elide.h"

#include <QStringList>
#include <QTextBoundaryFinder>
#include <algorithm>

namespace tandem {

namespace {

const QString kEllipsis = QStringLiteral("\u2026");

// Long names often differ in their last word only ("... side 2.mp3"), so that stays with the extension.
constexpr qsizetype kTail = 8;
constexpr qsizetype kLongestExtension = 5;  // letters, with its point

/// The places where a text may be cut: between letters as they are read, accents and all.
QList<qsizetype> cuts(const QString& text) {
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
  QList<qsizetype> places = {0};
  while (finder.toNextBoundary() > 0) places.append(finder.position());
  return places;
}

/// How many letters the extension has, 0 for none.
qsizetype extension_letters(const QString& name, const QList<qsizetype>& places) {
  const qsizetype point = name.lastIndexOf(u'.');
  if (point <= 0) return 0;
  const qsizetype letters = places.cend() - std::upper_bound(places.cbegin(), places.cend(), point);
  return letters <= kLongestExtension ? letters : 0;
}

QString without_end_blanks(QString text) {
  while (!text.isEmpty() && text.back().isSpace()) text.chop(1);
  return text;
}

}  // namespace

QString elide_directories(const QString& path, double room, const TextWidth& width) {
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
  QString shortest = QStringLiteral("\u2026/") + file;
  return width(shortest) <= room ? shortest : file;
}

QString elide_file_name(const QString& name, double room, const TextWidth& width) {
  if (width(name) <= room) return name;
  const QList<qsizetype> places = cuts(name);
  const qsizetype letters = places.size() - 1;
  const auto ends_with = [&](qsizetype tail) {
    return kEllipsis + name.mid(places[std::max<qsizetype>(letters - tail, 0)]);
  };
  const qsizetype extension = extension_letters(name, places);
  QString tail = ends_with(extension + kTail);
  if (width(tail) > room / 2) tail = ends_with(extension);
  qsizetype fits = 0;  // letters of the begin
  for (qsizetype beyond = letters; beyond - fits > 1;) {
    const qsizetype tried = (fits + beyond) / 2;
    (width(name.left(places[tried]) + tail) <= room ? fits : beyond) = tried;
  }
  return without_end_blanks(name.left(places[fits])) + tail;
}

}  // namespace tandem

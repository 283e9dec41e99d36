#include "widgets/window/dropped_names.h"

#include <QStringList>
#include <QUrl>
#include <algorithm>

#include "base/song_endings.h"

namespace tandem {

namespace {

void add(QStringList& words, qsizetype count, const QString& one) {
  if (count > 0) words << QStringLiteral("%1 %2%3").arg(count).arg(one, count == 1 ? "" : "s");
}

// Nothing is looked up while files hover: a disk may be slow. A name without a dot is nearly always a folder's.
bool looks_like_a_folder(const std::string& path) {
  return path.find('.', path.find_last_of('/', path.size() - 2) + 1) == std::string::npos;
}

}  // namespace

std::vector<std::string> local_paths(const QMimeData& data) {
  std::vector<std::string> paths;
  for (const QUrl& url : data.urls())
    if (url.isLocalFile())
      paths.push_back(QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString());
  return paths;
}

QString names_in_words(const std::vector<std::string>& paths) {
  const qsizetype songs = std::count_if(paths.begin(), paths.end(), ends_as_song);
  const qsizetype lists = std::count_if(paths.begin(), paths.end(), ends_as_list);
  QStringList words;
  add(words, songs, QStringLiteral("song"));
  add(words, lists, QStringLiteral("playlist"));
  const auto is_other = [](const std::string& path) { return !ends_as_song(path) && !ends_as_list(path); };
  const bool folders = std::all_of(paths.begin(), paths.end(),
                                   [&](const auto& path) { return !is_other(path) || looks_like_a_folder(path); });
  const auto one = folders ? QStringLiteral("folder") : QStringLiteral("folder or file");
  add(words, std::count_if(paths.begin(), paths.end(), is_other), one);
  return words.join(QStringLiteral(", ")).replace("folder or files", "folders or files");
}

}  // namespace tandem

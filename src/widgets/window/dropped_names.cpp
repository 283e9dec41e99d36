#include "widgets/window/dropped_names.h"

#include <QStringList>
#include <QUrl>
#include <algorithm>

namespace tandem {

namespace {

bool ends_in(const std::string& path, const QStringList& endings) {
  const QString name = QString::fromStdString(path);
  return std::any_of(endings.begin(), endings.end(),
                     [&name](const QString& ending) { return name.endsWith(ending, Qt::CaseInsensitive); });
}

void add(QStringList& words, qsizetype count, const QString& one) {
  if (count > 0) words << QStringLiteral("%1 %2%3").arg(count).arg(one, count == 1 ? "" : "s");
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
  const auto is_song = [](const std::string& path) { return ends_in(path, {".mp3", ".wav"}); };
  const auto is_list = [](const std::string& path) { return ends_in(path, {".m3l"}); };
  const qsizetype songs = std::count_if(paths.begin(), paths.end(), is_song);
  const qsizetype lists = std::count_if(paths.begin(), paths.end(), is_list);
  QStringList words;
  add(words, songs, QStringLiteral("song"));
  add(words, lists, QStringLiteral("playlist"));
  if (words.isEmpty()) add(words, static_cast<qsizetype>(paths.size()), QStringLiteral("folder or file"));
  return words.join(QStringLiteral(", ")).replace("folder or files", "folders or files");
}

}  // namespace tandem

// Files that hover over the window or are dropped on it. Any thread, no state.
#pragma once

#include <QMimeData>
#include <QString>
#include <string>
#include <vector>

namespace tandem {

// The paths of those that lie on this machine, their bytes as they were dropped, whether they are valid UTF-8 or not.
std::vector<std::string> local_paths(const QMimeData& data);

// "3 songs, 1 playlist": by their names alone, no file is looked at; what has no known ending is a folder or a file.
QString names_in_words(const std::vector<std::string>& paths);

}  // namespace tandem

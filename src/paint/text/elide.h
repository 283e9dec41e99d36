// Shortens texts that are too wide for their line. Any thread.
#pragma once

#include <QString>
#include <functional>

namespace tandem {

/// Measures a text in the unit of the room that it is to fit.
using TextWidth = std::function<double(const QString&)>;

/// A path that is too wide loses directories in the middle ("/home/ana/…/Winter Sun.mp3"), last ones first, and in the
/// end all of them; the file name stays whole even if it is wider than the room.
QString elide_directories(const QString& path, double room, const TextWidth& width);

/// A file name that is too wide loses letters before its last ones and its extension ("An evening in…side 2.mp3").
QString elide_file_name(const QString& name, double room, const TextWidth& width);

}  // namespace tandem

#include "engine/read/song_measure.h"

#include <sys/stat.h>

#include "engine/read/song_name.h"
#include "engine/read/song_source.h"

namespace tandem {

std::optional<FileIdentity> identify_song_file(const std::string& path) {
  const std::string name = existing_song_name(path);
  struct stat status {};
  if (name.find('\0') != std::string::npos || stat(name.c_str(), &status) != 0) return std::nullopt;
  constexpr std::int64_t kNanoseconds = 1'000'000'000;
  return FileIdentity{status.st_dev, status.st_ino, status.st_size,
                      status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec};
}

std::optional<MeasuredSong> measure_song(const std::string& path, const std::stop_token& stop,
                                         const MeasureProgress& progress) {
  MeasuredSong measured;
  measured.identity = identify_song_file(path);
  const std::int64_t all = measured.identity ? measured.identity->size : 0;
  const auto source = SongSource::open(path, [&](std::int64_t offset) {
    if (progress) progress(offset, all);
    return !stop.stop_requested();
  });
  measured.opens = source != nullptr;
  if (source != nullptr) measured.length = source->length();
  if (stop.stop_requested()) return std::nullopt;
  return measured;
}

}  // namespace tandem

#include "engine/components/probe_file.h"

#include <algorithm>
#include <limits>

#include "base/song_endings.h"

namespace tandem {

void ProbeFile::put_FileName(const std::string& name) {
  name_.clear();
  length_ms_ = 0;
  if (name.empty()) return;
  const auto known = songs_->find(name);
  const MeasuredSong song = known ? *known : measure_song(name).value_or(MeasuredSong{});
  if (!song.opens && !ends_as_song(name)) return;
  name_ = name;
  length_ms_ = static_cast<std::int32_t>(
      std::min<std::int64_t>(milliseconds_of(song.length), std::numeric_limits<std::int32_t>::max()));
}

}  // namespace tandem

#include "engine/components/measured_songs.h"

namespace tandem {

void MeasuredSongs::keep(const std::string& path, const MeasuredSong& song) {
  const std::lock_guard lock(mutex_);
  if (songs_.size() >= kMost) songs_.clear();
  songs_.insert_or_assign(path, song);
}

std::optional<MeasuredSong> MeasuredSongs::find(const std::string& path) const {
  std::optional<MeasuredSong> song;
  {
    const std::lock_guard lock(mutex_);
    const auto known = songs_.find(path);
    if (known == songs_.end()) return std::nullopt;
    song = known->second;
  }
  if (trusted_.load(std::memory_order_relaxed)) return song;
  return song->identity == identify_song_file(path) ? song : std::nullopt;
}

}  // namespace tandem

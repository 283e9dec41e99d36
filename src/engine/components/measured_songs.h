// A cache of measured song lengths, so that no file is measured twice. Any thread.
#pragma once

#include <atomic>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "engine/read/song_measure.h"

namespace tandem {

class MeasuredSongs {
 public:
  static constexpr std::size_t kMost = 4096;  // songs; the next one makes room by forgetting all

  void keep(const std::string& path, const MeasuredSong& song);
  // Nothing if the song was not measured, or if its file is another one since (device, inode, size, time of change).
  // Looks at the folder once, which blocks for as long as the disk does; not while what is known is trusted.
  std::optional<MeasuredSong> find(const std::string& path) const;
  // While a handler adds what has just been measured, or looked at, elsewhere, so that it does not wait for the disk.
  void trust(bool on) noexcept { trusted_.store(on, std::memory_order_relaxed); }

 private:
  std::atomic<bool> trusted_{false};
  mutable std::mutex mutex_;
  std::map<std::string, MeasuredSong> songs_;
};

}  // namespace tandem

// How long a song is, measured without decoding it, and whether its file is still the one that was measured.
// Any thread. Both functions block for as long as the disk does.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>

#include "engine/core/frames.h"

namespace tandem {

// Which file a song's name opens (see song_name.h), and in which state.
struct FileIdentity {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::int64_t size = 0;      // bytes
  std::int64_t modified = 0;  // nanoseconds since 1970
  friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

// One look at the folder, the file is not opened. nullopt if there is no such file.
std::optional<FileIdentity> identify_song_file(const std::string& path);

struct MeasuredSong {
  bool opens = false;                    // the file holds sound that can be decoded
  Frames length = 0;                     // at 44100 Hz, exactly what a deck will play; 0 if it does not open
  std::optional<FileIdentity> identity;  // before the song was opened; nullopt if there was no such file
};

// `done` of `all` bytes of the file have been looked at.
using MeasureProgress = std::function<void(std::int64_t done, std::int64_t all)>;

// Opens and measures a song. A stop ends it within one read of at most 64 KiB; then nullopt. `progress` may be empty;
// it is called on this thread, often (after every read or more), so that it must be quick. Files with a header that can
// be trusted need only a few reads, others are walked through as a whole.
std::optional<MeasuredSong> measure_song(const std::string& path, const std::stop_token& stop = {},
                                         const MeasureProgress& progress = {});

}  // namespace tandem

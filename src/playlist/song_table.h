// The songs of the list by their number, from 1. Entry 0 holds no song, so there are at most 200. UI thread.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace tandem {

struct SongEntry {
  std::string SongFile;         // full path
  std::int32_t SongLength = 0;  // milliseconds
};

class SongEntries {
 public:
  static constexpr std::int32_t kLastSong = 200;

  // Throws Range outside 0 .. 200.
  SongEntry& at(std::int32_t number);
  const SongEntry& at(std::int32_t number) const;

  void swap(std::int32_t first, std::int32_t second);
  // A song is removed in two steps: its entry is marked, then the entries after marked ones move down.
  void mark_removed(std::int32_t number);
  void compact();  // trims blanks off every path, and always empties the last entry

 private:
  std::array<SongEntry, std::size_t{kLastSong} + 1> entries_;
};

}  // namespace tandem

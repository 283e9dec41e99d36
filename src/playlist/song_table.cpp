#include "playlist/song_table.h"

#include <utility>

#include "base/runtime_error.h"
#include "base/text.h"

namespace tandem {

namespace {

constexpr const char* kRemoved = "*";

std::size_t checked(std::int32_t number) {
  if (number < 0 || number > SongEntries::kLastSong) throw RuntimeError(RuntimeErrorKind::Range);
  return static_cast<std::size_t>(number);
}

SongEntry trimmed_entry(const SongEntry& entry) { return {std::string(trimmed(entry.SongFile)), entry.SongLength}; }

}  // namespace

SongEntry& SongEntries::at(std::int32_t number) { return entries_[checked(number)]; }
const SongEntry& SongEntries::at(std::int32_t number) const { return entries_[checked(number)]; }

void SongEntries::swap(std::int32_t first, std::int32_t second) { std::swap(at(first), at(second)); }

void SongEntries::mark_removed(std::int32_t number) { at(number) = {kRemoved, 0}; }

void SongEntries::compact() {
  std::array<SongEntry, std::size_t{kLastSong} + 1> SongTableCopy;
  std::int32_t shift = 0;
  for (std::int32_t k = 1; k < kLastSong; ++k) {
    if (at(k).SongFile == kRemoved) ++shift;
    SongTableCopy[static_cast<std::size_t>(k)] = trimmed_entry(at(k + shift));
  }
  for (std::int32_t k = 1; k <= kLastSong; ++k) at(k) = trimmed_entry(SongTableCopy[static_cast<std::size_t>(k)]);
}

}  // namespace tandem

// A stretch of a song's file that is held in memory and moves along as it is read.
// Used by one thread at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "engine/decode/song_file.h"

namespace tandem {

class ByteWindow {
 public:
  static constexpr std::size_t kCapacity = std::size_t{1} << 16;

  // Shows the bytes of `file` before the offset `end`.
  ByteWindow(std::shared_ptr<const SongFile> file, std::int64_t end);

  std::int64_t end() const noexcept { return end_; }

  // The `count` bytes (at most kCapacity) at `offset`, or nullptr if not all of them can be read.
  // Valid until the next call.
  const std::uint8_t* at(std::int64_t offset, std::size_t count) noexcept;

  // What lies at `offset`, at least one byte and at most kCapacity; empty at the end or on an error.
  std::span<const std::uint8_t> from(std::int64_t offset) noexcept;

 private:
  bool holds(std::int64_t offset, std::int64_t count) const noexcept;
  std::int64_t first_to_load(std::int64_t offset, std::int64_t count) const noexcept;
  void load(std::int64_t offset) noexcept;

  std::shared_ptr<const SongFile> file_;
  std::int64_t end_;
  std::vector<std::uint8_t> bytes_;
  std::int64_t begin_ = 0;
  std::size_t held_ = 0;
};

}  // namespace tandem

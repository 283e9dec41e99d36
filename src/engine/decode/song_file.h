// A song's file, opened for reading at any place.
// Thread-safe: reading keeps no position. Reads block for as long as the disk does.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>

#include "base/descriptor.h"

namespace tandem {

class SongFile {
 public:
  // nullptr for what is missing or unreadable and for all but regular files; never waits for a FIFO or a device.
  static std::shared_ptr<const SongFile> open(const std::string& path);

  SongFile(Descriptor descriptor, std::int64_t size) : descriptor_(std::move(descriptor)), size_(size) {}

  std::int64_t size() const noexcept { return size_; }  // bytes, at the time of opening

  // Fills `out` with the bytes from `offset` on. Returns how many there were: fewer at the end of the file or on an
  // error.
  std::size_t read_at(std::int64_t offset, std::span<std::uint8_t> out) const noexcept;

 private:
  Descriptor descriptor_;
  std::int64_t size_;
};

}  // namespace tandem

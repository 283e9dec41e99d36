// Walks an MPEG stream from frame to frame without decoding, past tags, garbage and damage.
// A frame counts when it begins three consecutive consistent frames, or fewer that run to the end of the stream, or
// follows on from a frame that counted.
// Used by one thread at a time; blocks for as long as the disk does.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "engine/decode/byte_window.h"
#include "engine/decode/mpeg_header.h"

namespace tandem {

struct Mp3Frame {
  std::int64_t offset = 0;  // in the file
  std::int32_t bytes = 0;
  MpegHeader header;
};

class Mp3FrameScanner {
 public:
  static constexpr std::int64_t kMostLeadingGarbage = std::int64_t{1} << 20;

  // Walks the bytes [begin, end) of the file.
  Mp3FrameScanner(std::shared_ptr<const SongFile> file, std::int64_t begin, std::int64_t end);

  // The next whole frame; nullopt at the end.
  std::optional<Mp3Frame> next() noexcept;

  ByteWindow& window() noexcept { return window_; }
  std::int64_t end() const noexcept { return window_.end(); }

 private:
  std::optional<Mp3Frame> frame_at(std::int64_t offset) noexcept;
  std::optional<Mp3Frame> follower(const Mp3Frame& frame) noexcept;
  bool begins_chain(const Mp3Frame& frame) noexcept;
  std::optional<Mp3Frame> begins_free_format_chain(Mp3Frame frame) noexcept;
  std::int32_t next_sync(std::int64_t offset, std::int32_t distance) noexcept;
  std::optional<Mp3Frame> chain_at(std::int64_t offset) noexcept;
  std::optional<Mp3Frame> find_chain(std::int64_t from, std::int64_t limit) noexcept;
  bool find_next(const Mp3Frame& frame) noexcept;

  ByteWindow window_;
  std::int32_t free_format_bytes_ = 0;  // base size of frames in free format, without padding
  bool started_ = false;
  std::int64_t begin_;
  std::optional<Mp3Frame> next_;
};

}  // namespace tandem

// Walks an MPEG stream from frame to frame without decoding, past tags, garbage and damage.
// A frame counts when it follows on from one that counted, or begins three consecutive consistent frames, or fewer that
// run to the end of the stream. The last frame may be cut short, if it follows on or the stream begins with it: it
// counts if anything follows its header. Used by one thread at a time; blocks for as long as the disk does.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "engine/decode/byte_window.h"
#include "engine/decode/mpeg_header.h"

namespace tandem {

struct Mp3Frame {
  std::int64_t offset = 0;  // in the file
  std::int32_t bytes = 0;   // of the whole frame, also where the file ends within it
  MpegHeader header;
};

class Mp3FrameScanner {
 public:
  static constexpr std::int64_t kMostLeadingGarbage = std::int64_t{1} << 20;
  static constexpr std::int64_t kSearchStep = std::int64_t{1} << 16;

  // Walks the bytes [begin, end) of the file.
  Mp3FrameScanner(std::shared_ptr<const SongFile> file, std::int64_t begin, std::int64_t end);

  // One step: to the next frame, or over at most kSearchStep bytes without one. nullopt if it came to no frame;
  // ended() says whether there are more.
  std::optional<Mp3Frame> step() noexcept;
  bool ended() const noexcept { return started_ && !next_ && search_from_ >= search_end_; }

  // Goes on at the frame at `offset` if three frames of the bit rate and format of `like` stand there one after
  // another; false, and nothing changes, if not.
  bool go_on_at(std::int64_t offset, const MpegHeader& like) noexcept;

  ByteWindow& window() noexcept { return window_; }
  std::int64_t end() const noexcept { return window_.end(); }
  std::int64_t offset() const noexcept { return next_ ? next_->offset : search_from_; }  // reached so far

 private:
  std::optional<Mp3Frame> frame_at(std::int64_t offset) noexcept;
  std::optional<Mp3Frame> follower(const Mp3Frame& frame) noexcept;
  bool is_lone_cut_frame(const Mp3Frame& frame) const noexcept;
  bool begins_chain(const Mp3Frame& frame) noexcept;
  std::optional<Mp3Frame> begins_free_format_chain(Mp3Frame frame) noexcept;
  std::int32_t next_sync(std::int64_t offset, std::int32_t distance) noexcept;
  std::optional<Mp3Frame> chain_at(std::int64_t offset) noexcept;
  std::optional<Mp3Frame> find_chain(std::int64_t from, std::int64_t limit) noexcept;
  bool find_next(const Mp3Frame& frame) noexcept;
  void start() noexcept;
  void search(std::int64_t from, std::int64_t end) noexcept;
  void search_on() noexcept;

  ByteWindow window_;
  std::int32_t free_format_bytes_ = 0;  // base size of frames in free format, without padding
  bool started_ = false;
  std::int64_t begin_;
  std::int64_t first_ = 0;  // where the sound begins if nothing but tags stands before it
  std::optional<Mp3Frame> next_;
  std::int64_t search_from_ = 0;  // what is still to be searched for frames
  std::int64_t search_end_ = 0;
};

}  // namespace tandem

#include "engine/decode/mp3_frame_scanner.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "engine/decode/mp3_tags.h"

namespace tandem {
namespace {

constexpr int kChainFrames = 3;
constexpr std::int32_t kShortestFrame = 24;

std::int64_t end_of(const Mp3Frame& frame) { return frame.offset + frame.bytes; }

}  // namespace

Mp3FrameScanner::Mp3FrameScanner(std::shared_ptr<const SongFile> file, std::int64_t begin, std::int64_t end)
    : window_(std::move(file), end), begin_(begin) {}

std::optional<Mp3Frame> Mp3FrameScanner::step() noexcept {
  if (!started_) start();
  if (!next_) {
    search_on();
    return std::nullopt;
  }
  const Mp3Frame frame = *next_;
  if (!find_next(frame)) return std::nullopt;
  return frame;
}

void Mp3FrameScanner::start() noexcept {
  started_ = true;
  first_ = skip_tags(window_, begin_);
  search(first_, std::min(end(), first_ + kMostLeadingGarbage));
}

void Mp3FrameScanner::search(std::int64_t from, std::int64_t end) noexcept {
  search_from_ = from;
  search_end_ = end;
}

void Mp3FrameScanner::search_on() noexcept {
  const std::int64_t limit = std::min(search_end_, search_from_ + kSearchStep);
  next_ = find_chain(search_from_, limit);
  const bool readable = next_ || !window_.from(search_from_).empty();
  search_from_ = next_ || !readable ? search_end_ : limit;
}

// Moves on to what follows `frame`. False if that begins within the frame: bytes of it are missing, it must not sound.
bool Mp3FrameScanner::find_next(const Mp3Frame& frame) noexcept {
  const std::int64_t after = end_of(frame);
  next_ = follower(frame);
  if (next_ || after == end()) return true;
  const std::int64_t untagged = after < end() ? skip_tags(window_, after) : after;
  if (untagged == after) next_ = find_chain(frame.offset + 1, std::min(after, end()));
  if (next_) return false;
  search(untagged, end());
  return frame.offset + static_cast<std::int64_t>(MpegHeader::kBytes) < end();
}

bool Mp3FrameScanner::go_on_at(std::int64_t offset, const MpegHeader& like) noexcept {
  const auto frame = frame_at(offset);
  if (!frame || !same_bit_rate(frame->header, like) || !begins_chain(*frame)) return false;
  next_ = frame;
  search(end(), end());
  return true;
}

std::optional<Mp3Frame> Mp3FrameScanner::frame_at(std::int64_t offset) noexcept {
  const std::uint8_t* bytes = window_.at(offset, MpegHeader::kBytes);
  if (bytes == nullptr) return std::nullopt;
  const auto header = parse_mpeg_header(bytes);
  if (!header) return std::nullopt;
  return Mp3Frame{offset, header->free_format() ? free_format_bytes_ + header->padding : header->bytes, *header};
}

std::optional<Mp3Frame> Mp3FrameScanner::follower(const Mp3Frame& frame) noexcept {
  auto found = frame_at(end_of(frame));
  if (found && !same_stream(found->header, frame.header)) found.reset();
  return found;
}

// Of Layer III only, and only where the sound should begin: the mark of UTF-16 text looks like a header of Layer I.
bool Mp3FrameScanner::is_lone_cut_frame(const Mp3Frame& frame) const noexcept {
  return frame.offset == first_ && frame.header.layer == 3 && end_of(frame) > end();
}

bool Mp3FrameScanner::begins_chain(const Mp3Frame& frame) noexcept {
  if (is_lone_cut_frame(frame)) return true;
  Mp3Frame last = frame;
  for (int count = 1; count < kChainFrames; ++count) {
    const bool may_be_cut = frame.offset == first_ && count > 1;
    if (end_of(last) == end() || (may_be_cut && end_of(last) > end())) return true;
    const auto found = follower(last);
    if (!found) return false;
    last = *found;
  }
  return end_of(frame) <= end();
}

// Only the distance to the next header shows the size of a frame in free format.
std::optional<Mp3Frame> Mp3FrameScanner::begins_free_format_chain(Mp3Frame frame) noexcept {
  const std::int32_t before = free_format_bytes_;
  for (std::int32_t size = kShortestFrame; size <= MpegHeader::kLongestFrame; ++size) {
    size = next_sync(frame.offset, size);
    frame.bytes = size;
    free_format_bytes_ = size - frame.header.padding;
    if (follower(frame) && begins_chain(frame)) return frame;
  }
  free_format_bytes_ = before;
  return std::nullopt;
}

// The first place from offset + distance on where a header may begin, as a distance; kLongestFrame if there is none.
std::int32_t Mp3FrameScanner::next_sync(std::int64_t offset, std::int32_t distance) noexcept {
  const auto reach = static_cast<std::int64_t>(MpegHeader::kLongestFrame - distance);
  const auto count = static_cast<std::size_t>(std::clamp<std::int64_t>(end() - offset - distance, 0, reach));
  const std::uint8_t* bytes = window_.at(offset + distance, count);
  const void* sync = bytes == nullptr ? nullptr : std::memchr(bytes, 0xFF, count);
  if (sync == nullptr) return MpegHeader::kLongestFrame;
  return distance + static_cast<std::int32_t>(static_cast<const std::uint8_t*>(sync) - bytes);
}

std::optional<Mp3Frame> Mp3FrameScanner::chain_at(std::int64_t offset) noexcept {
  auto frame = frame_at(offset);
  if (!frame) return std::nullopt;
  if (frame->header.free_format()) return begins_free_format_chain(*frame);
  return begins_chain(*frame) ? frame : std::nullopt;
}

std::optional<Mp3Frame> Mp3FrameScanner::find_chain(std::int64_t from, std::int64_t limit) noexcept {
  while (from < limit) {
    const auto bytes = window_.from(from);
    if (bytes.empty()) return std::nullopt;
    const void* sync = std::memchr(bytes.data(), 0xFF, bytes.size());
    if (sync == nullptr) {
      from += static_cast<std::int64_t>(bytes.size());
      continue;
    }
    from += static_cast<const std::uint8_t*>(sync) - bytes.data();
    if (from >= limit) break;
    if (auto frame = chain_at(from)) return frame;
    ++from;
  }
  return std::nullopt;
}

}  // namespace tandem

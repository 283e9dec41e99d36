#include "engine/decode/mp3_frame_table.h"

#include <algorithm>
#include <iterator>

namespace tandem {
namespace {

// Bytes of the frame whose header stands at `offset`; 0 if none does.
std::int32_t bytes_at(std::int64_t offset, std::int32_t free_format_bytes, ByteWindow& window) noexcept {
  const std::uint8_t* bytes = window.at(offset, MpegHeader::kBytes);
  const auto header = bytes == nullptr ? std::nullopt : parse_mpeg_header(bytes);
  if (!header) return 0;
  return header->free_format() ? free_format_bytes + header->padding : header->bytes;
}

}  // namespace

void Mp3FrameTable::add_stretch(Kind kind) { stretches_.push_back({end_, static_cast<std::uint32_t>(size_), kind}); }

void Mp3FrameTable::add(const Mp3Frame& frame, bool new_section) {
  const std::int32_t free_format = frame.header.free_format() ? frame.bytes - frame.header.padding : 0;
  const bool lost = !stretches_.empty() && stretches_.back().kind == Kind::kLost;
  const bool follows = !stretches_.empty() && !lost && frame.offset == end_ && !new_section &&
                       runs_.back().free_format_bytes == free_format;
  if (!follows && size_ > 0) constant_rate_.add_gap();
  constant_rate_.add(frame);
  end_ = frame.offset;
  if (!follows) runs_.push_back({size_, free_format});
  const bool on_the_way = follows && stretches_.back().kind == Kind::kWalked;
  if (!on_the_way || size_ - stretches_.back().first >= kFramesApart) add_stretch(Kind::kWalked);
  end_ += frame.bytes;
  ++size_;
}

void Mp3FrameTable::add_lost(std::size_t count) {
  if (count == 0) return;
  runs_.push_back({size_, 0});
  add_stretch(Kind::kLost);
  size_ += count;
  constant_rate_.add_gap();
}

void Mp3FrameTable::add_calculated(std::size_t count, std::int64_t end) {
  add_stretch(Kind::kCalculated);
  size_ += count;
  end_ = end;
}

const Mp3FrameTable::Stretch& Mp3FrameTable::stretch_of(std::size_t frame) const noexcept {
  return *std::prev(std::ranges::upper_bound(stretches_, frame, {}, &Stretch::first));
}

const Mp3FrameTable::Run& Mp3FrameTable::run_of(std::size_t frame) const noexcept {
  return *std::prev(std::ranges::upper_bound(runs_, frame, {}, &Run::first));
}

std::optional<Mp3FrameTable::Place> Mp3FrameTable::place(std::size_t frame, ByteWindow& window) const noexcept {
  const Stretch& stretch = stretch_of(frame);
  if (stretch.kind == Kind::kLost) return Place{stretch.offset, 0};
  const auto found =
      stretch.kind == Kind::kWalked ? walk_to(frame, stretch, window) : calculate(frame, stretch, window);
  found_ = found.value_or(Place{});
  found_frame_ = frame;
  return found;
}

std::optional<Mp3FrameTable::Place> Mp3FrameTable::walk_to(std::size_t frame, const Stretch& stretch,
                                                           ByteWindow& window) const noexcept {
  const std::int32_t free_format = run_of(frame).free_format_bytes;
  const bool is_near = found_.bytes > 0 && found_frame_ >= stretch.first && found_frame_ < frame;
  std::size_t number = is_near ? found_frame_ + 1 : stretch.first;
  Place place{is_near ? found_.offset + found_.bytes : stretch.offset, 0};
  for (;; ++number) {
    place.bytes = bytes_at(place.offset, free_format, window);
    if (place.bytes == 0) return std::nullopt;
    if (number == frame) return place;
    place.offset += place.bytes;
  }
}

std::optional<Mp3FrameTable::Place> Mp3FrameTable::calculate(std::size_t frame, const Stretch& stretch,
                                                             ByteWindow& window) const noexcept {
  for (const std::int64_t distance : constant_rate_.distances(static_cast<std::int64_t>(frame - stretch.first))) {
    const std::int64_t offset = stretch.offset + distance;
    const std::uint8_t* bytes = window.at(offset, MpegHeader::kBytes);
    if (bytes == nullptr) return std::nullopt;
    const auto header = parse_mpeg_header(bytes);
    if (header && same_bit_rate(*header, constant_rate_.header())) return Place{offset, header->bytes};
  }
  return Place{stretch.offset, 0};
}

std::size_t Mp3FrameTable::memory_bytes() const noexcept {
  return stretches_.capacity() * sizeof(Stretch) + runs_.capacity() * sizeof(Run);
}

}  // namespace tandem

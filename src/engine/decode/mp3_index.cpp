#include "engine/decode/mp3_index.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "engine/decode/mp3_tags.h"

namespace tandem {
namespace {

constexpr Frames kEndless = std::numeric_limits<Frames>::max();
constexpr Frames kMostEdges = 2 * 4096 + kLayer3Delay;  // the note holds 12 bits for each

}  // namespace

std::unique_ptr<Mp3Index> Mp3Index::open(std::shared_ptr<const SongFile> file, std::int64_t begin, std::int64_t end) {
  end = trim_tags(*file, begin, std::min(end, file->size()));
  auto index = std::make_unique<Mp3Index>(std::move(file), begin, end);
  index->start();
  if (!index->sounds()) return nullptr;
  return index;
}

Mp3Index::Mp3Index(std::shared_ptr<const SongFile> file, std::int64_t begin, std::int64_t end)
    : file_(std::move(file)), walk_(file_, begin, end) {}

void Mp3Index::start() {
  const auto first = walk_.next();
  if (!first) {
    ended_ = true;
    return;
  }
  const auto count = static_cast<std::size_t>(first->bytes);
  const std::uint8_t* bytes = walk_.window().at(first->offset, count);
  const auto info = bytes == nullptr ? std::nullopt : parse_mp3_info(first->header, {bytes, count});
  if (!info) {
    add(*first);
    return;
  }
  set_edges(*info, first->header);
  believed_ = believes(*info, *first);
  if (believed_) parts_.push_back({0, first->header});
}

void Mp3Index::set_edges(const Mp3Info& info, const MpegHeader& header) {
  noted_frames_ = static_cast<std::size_t>(info.frames);
  noted_bytes_ = info.bytes;
  if (!info.has_edges) return;
  skip_ = info.delay + kLayer3Delay;
  if (info.frames > 0) cut_ = info.frames * header.samples - std::max(0, info.padding - kLayer3Delay);
}

bool Mp3Index::believes(const Mp3Info& info, const Mp3Frame& first) {
  return info.intact && info.frames > 0 && !first.header.free_format() && info.bytes == walk_.end() - first.offset &&
         info.bytes > info.frames && last_frame_in_place(first.header);
}

bool Mp3Index::last_frame_in_place(const MpegHeader& header) {
  std::array<std::uint8_t, MpegHeader::kLongestFrame> tail{};
  const auto size = static_cast<std::int64_t>(tail.size());
  if (file_->read_at(walk_.end() - size, tail) != tail.size()) return false;
  for (std::size_t at = 0; at + MpegHeader::kBytes <= tail.size(); ++at) {
    if (tail.at(at) != 0xFF) continue;
    const auto found = parse_mpeg_header(tail.data() + at);
    if (found && same_stream(*found, header) && found->bytes == static_cast<int>(tail.size() - at)) return true;
  }
  return false;
}

// Whether there is at least one sample, by a look at so many frames that the edges cannot take them all.
bool Mp3Index::sounds() {
  for (std::size_t frame = 0; reach(frame); ++frame) {
    if (!parts_.empty() && static_cast<Frames>(frame) * parts_.front().header.samples > kMostEdges) return true;
  }
  if (parts_.empty()) return false;
  return std::ranges::any_of(sections(), [](const Section& section) { return section.length > 0; });
}

bool Mp3Index::reach(std::size_t frame) {
  while (frame >= places_.size()) {
    if (!step()) return false;
  }
  return true;
}

bool Mp3Index::step() {
  if (ended_) return false;
  const auto frame = walk_.next();
  if (believed_) {
    step_as_noted(frame);
    return true;
  }
  if (frame) add(*frame);
  ended_ = !frame;
  return !ended_;
}

void Mp3Index::step_as_noted(const std::optional<Mp3Frame>& frame) {
  if (frame && same_stream(frame->header, parts_.front().header)) add_after_gap(*frame);
  if (!frame && file_is_whole()) add_lost(noted_frames_ - places_.size());
  ended_ = !frame || places_.size() >= noted_frames_;
}

// False if the file was cut after it was opened, or cannot be read any more.
bool Mp3Index::file_is_whole() const {
  std::array<std::uint8_t, 1> last{};
  return file_->read_at(walk_.end() - 1, last) == last.size();
}

void Mp3Index::add(const Mp3Frame& frame) {
  if (parts_.empty() || !same_stream(parts_.back().header, frame.header)) {
    parts_.push_back({places_.size(), frame.header});
  }
  push({frame.offset, frame.bytes}, frame.header.free_format() ? frame.bytes - frame.header.padding : 0);
}

void Mp3Index::add_after_gap(const Mp3Frame& frame) {
  const auto gap = places_.empty() ? 0 : frame.offset - (places_.back().offset + places_.back().bytes);
  const auto frames = static_cast<std::int64_t>(noted_frames_);
  const auto lost = (gap * frames + noted_bytes_ / 2) / noted_bytes_;
  const std::size_t room = noted_frames_ - places_.size() - 1;
  add_lost(std::min(room, static_cast<std::size_t>(lost)));
  add(frame);
}

void Mp3Index::add_lost(std::size_t count) {
  const std::int64_t offset = places_.empty() ? 0 : places_.back().offset + places_.back().bytes;
  for (std::size_t i = 0; i < count; ++i) push({offset, 0}, 0);
}

void Mp3Index::push(const Place& place, std::int32_t free_format_bytes) {
  const bool follows = !places_.empty() && places_.back().bytes != 0 &&
                       places_.back().offset + places_.back().bytes == place.offset && place.bytes != 0 &&
                       parts_.back().first != places_.size() && runs_.back().free_format_bytes == free_format_bytes;
  if (!follows) runs_.push_back({places_.size(), free_format_bytes});
  places_.push_back(place);
}

const Mp3Index::Run& Mp3Index::run_of(std::size_t frame) const {
  const auto behind = std::ranges::upper_bound(runs_, frame, {}, &Run::first);
  return *std::prev(behind);
}

Frames Mp3Index::end_of_sound(std::size_t part, Frames wanted) {
  const Part here = parts_[part];
  const Frames samples = here.header.samples;
  const auto needed = wanted == kEndless ? kEndless : (wanted + samples - 1) / samples;
  reach(needed == kEndless ? std::numeric_limits<std::size_t>::max()
                           : here.first + static_cast<std::size_t>(needed) - 1);
  const std::size_t behind = part + 1 < parts_.size() ? parts_[part + 1].first : places_.size();
  Frames end = std::min(wanted, static_cast<Frames>(behind - here.first) * samples);
  if (part == 0 && cut_ && end > *cut_ && !reach(noted_frames_)) end = *cut_;
  return std::max(end, first_sample(part));
}

const std::vector<Section>& Mp3Index::sections() {
  if (!sections_.empty()) return sections_;
  if (believed_) {
    const auto all = static_cast<Frames>(noted_frames_) * parts_.front().header.samples;
    sections_ = {{parts_.front().header.rate, std::max<Frames>(0, cut_.value_or(all) - skip_)}};
    return sections_;
  }
  for (std::size_t part = 0; part < parts_.size(); ++part) {
    const Frames end = end_of_sound(part, kEndless);
    sections_.push_back({parts_[part].header.rate, end - first_sample(part)});
  }
  return sections_;
}

}  // namespace tandem

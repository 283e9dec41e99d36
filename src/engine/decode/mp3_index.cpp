#include "engine/decode/mp3_index.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "engine/decode/mp3_tags.h"

namespace tandem {
namespace {

constexpr std::size_t kWorthALeap = 1000;  // frames; fewer are walked
// So many frames before the end of the stream are always walked: the end is where they end.
constexpr std::int64_t kWalkedToEnd = 16;

}  // namespace

std::unique_ptr<Mp3Index> Mp3Index::open(std::shared_ptr<const SongFile> file, std::int64_t begin, std::int64_t end,
                                         WalkGuard guard) {
  end = trim_tags(*file, begin, std::min(end, file->size()));
  auto index = std::make_unique<Mp3Index>(std::move(file), begin, end, std::move(guard));
  if (!index->sounds()) return nullptr;
  return index;
}

Mp3Index::Mp3Index(std::shared_ptr<const SongFile> file, std::int64_t begin, std::int64_t end, WalkGuard guard)
    : file_(std::move(file)), guard_(std::move(guard)), scanner_(file_, begin, end) {}

void Mp3Index::take_first(const Mp3Frame& first) {
  started_ = true;
  const auto count = static_cast<std::size_t>(std::min<std::int64_t>(first.bytes, scanner_.end() - first.offset));
  const std::uint8_t* bytes = scanner_.window().at(first.offset, count);
  const auto info = bytes == nullptr ? std::nullopt : parse_mp3_info(first.header, {bytes, count});
  if (!info) {
    add(first);
    return;
  }
  set_edges(*info, first);
  trusted_ = trusts(*info, first);
  if (trusted_) sections_.push_back({0, first.header});
}

void Mp3Index::set_edges(const Mp3Info& info, const Mp3Frame& first) {
  noted_frames_ = static_cast<std::size_t>(info.frames);
  noted_bytes_ = info.bytes;
  noted_bytes_right_ = info.bytes == scanner_.end() - first.offset;
  if (!info.has_edges) return;
  skip_ = info.encoder_delay + kLayer3Delay;
  padding_ = std::max(0, info.encoder_padding - kLayer3Delay);
}

bool Mp3Index::trusts(const Mp3Info& info, const Mp3Frame& first) {
  return info.intact && info.frames > 0 && !first.header.free_format() && noted_bytes_right_ &&
         info.bytes > info.frames && last_frame_in_place(first.header);
}

bool Mp3Index::last_frame_in_place(const MpegHeader& header) {
  std::array<std::uint8_t, MpegHeader::kLongestFrame> tail{};
  const auto size = static_cast<std::int64_t>(tail.size());
  if (file_->read_at(scanner_.end() - size, tail) != tail.size()) return false;
  for (std::size_t at = 0; at + MpegHeader::kBytes <= tail.size(); ++at) {
    if (tail.at(at) != 0xFF) continue;
    const auto found = parse_mpeg_header(tail.data() + at);
    if (found && same_stream(*found, header) && found->bytes == static_cast<int>(tail.size() - at)) return true;
  }
  return false;
}

bool Mp3Index::sounds() {
  reach(0);
  for (std::size_t section = 0; section < sections_.size(); ++section)
    if (end_of_sound(section, first_sample(section) + 1) > first_sample(section)) return true;
  return false;
}

bool Mp3Index::reach(std::size_t frame) {
  while (frame >= table_.size()) {
    if (ended_ || (guard_ && !guard_(scanner_.offset()))) return false;
    step();
  }
  return true;
}

void Mp3Index::step() {
  const auto frame = scanner_.step();
  if (!frame && !scanner_.ended()) return;
  if (frame && !started_) return take_first(*frame);
  if (trusted_) return take_trusted(frame);
  if (frame) add(*frame);
  ended_ = !frame;
}

bool Mp3Index::leap_to(std::size_t frame) {
  const Mp3ConstantRate& rate = table_.constant_rate();
  if (frame >= table_.size() + kWorthALeap && reach(Mp3ConstantRate::kLeastFrames - 1) && rate.holds()) {
    leap(static_cast<std::int64_t>(frame - table_.size()));
  }
  return reach(frame);
}

// Over `frames` frames, or as many as there can be.
void Mp3Index::leap(std::int64_t frames) {
  const Mp3ConstantRate& rate = table_.constant_rate();
  const std::int64_t from = table_.end();
  frames = std::min(frames, rate.frames_within(scanner_.end() - from) - kWalkedToEnd);
  if (trusted_) frames = std::min(frames, static_cast<std::int64_t>(noted_frames_ - table_.size()) - kWalkedToEnd);
  if (frames <= 0) return;
  for (const std::int64_t distance : rate.distances(frames)) {
    if (!scanner_.go_on_at(from + distance, rate.header())) continue;
    return table_.add_calculated(static_cast<std::size_t>(frames), from + distance);
  }
}

void Mp3Index::take_trusted(const std::optional<Mp3Frame>& frame) {
  if (frame && same_stream(frame->header, sections_.front().header)) add_after_gap(*frame);
  if (!frame && file_is_whole()) table_.add_lost(noted_frames_ - table_.size());
  ended_ = !frame || table_.size() >= noted_frames_;
}

// False if the file was cut after it was opened, or cannot be read any more.
bool Mp3Index::file_is_whole() const {
  std::array<std::uint8_t, 1> last{};
  return file_->read_at(scanner_.end() - 1, last) == last.size();
}

void Mp3Index::add(const Mp3Frame& frame) {
  const bool new_section = sections_.empty() || !same_stream(sections_.back().header, frame.header);
  if (new_section) sections_.push_back({table_.size(), frame.header});
  table_.add(frame, new_section);
}

void Mp3Index::add_after_gap(const Mp3Frame& frame) {
  const auto gap = table_.size() == 0 ? 0 : frame.offset - table_.end();
  const auto frames = static_cast<std::int64_t>(noted_frames_);
  const auto lost = (gap * frames + noted_bytes_ / 2) / noted_bytes_;
  const std::size_t room = noted_frames_ - table_.size() - 1;
  table_.add_lost(std::min(room, static_cast<std::size_t>(lost)));
  add(frame);
}

// The padding stands at the end of the stream that the encoder made. Where its count of frames is wrong, its count of
// bytes shows that the end is here; a stream that was cut, or to which another was appended, has none.
bool Mp3Index::ends_with_padding(std::size_t frames) const { return frames == noted_frames_ || noted_bytes_right_; }

Frames Mp3Index::counted_end(std::size_t section) const {
  const bool is_last = section + 1 >= sections_.size();
  const std::size_t after = is_last ? table_.size() : sections_[section + 1].first;
  const std::size_t count = after - sections_[section].first;
  const Frames end = static_cast<Frames>(count) * sections_[section].header.samples;
  const bool complete = !is_last || ended_;
  return section == 0 && complete && ends_with_padding(count) ? end - padding_ : end;
}

Frames Mp3Index::end_of_sound(std::size_t section, Frames wanted, bool leaps) {
  if (trusted_) return std::min(wanted, end_of_sound(section));
  const Section here = sections_[section];
  const Frames samples = here.header.samples;
  // Far enough that the padding begins no earlier than `wanted` if the stream goes on there.
  const Frames frames = wanted / samples + padding_ / samples + 2;
  const std::size_t last = here.first + static_cast<std::size_t>(frames);
  leaps ? leap_to(last) : reach(last);
  return std::max(std::min(wanted, counted_end(section)), first_sample(section));
}

Frames Mp3Index::end_of_sound(std::size_t section) {
  constexpr Frames kEndless = std::numeric_limits<Frames>::max() / 2;
  if (!trusted_) return end_of_sound(section, kEndless);
  return std::max(static_cast<Frames>(noted_frames_) * sections_.front().header.samples - padding_, skip_);
}

}  // namespace tandem

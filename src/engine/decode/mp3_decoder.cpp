#include "engine/decode/mp3_decoder.h"

#include <mpg123.h>

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

namespace tandem {
namespace {

// The bit reservoir reaches at most 511 bytes back, and two frames more settle the overlapping transforms.
constexpr std::int64_t kReservoirBytes = 511;
constexpr std::size_t kSettlingFrames = 2;
constexpr std::size_t kLeastWarmFrames = 10;
constexpr std::size_t kMostWarmFrames = 200;  // frames of 24 bytes, the shortest, hold 3 bytes or more each
constexpr int kChecksumBytes = 2;
// After this many frames the synthesis filter's ring is at the same offset again, so that sums round alike.
constexpr std::size_t kSynthesisPeriod = 8;
constexpr int kMostSamples = 1152;

// Frames that are damaged can come out a thousand times too loud, or as no number; whole ones stay well within this.
constexpr float kLoudestFrame = 4.0F;

float within_reason(float sample) {
  return std::isfinite(sample) ? std::clamp(sample, -kLoudestFrame, kLoudestFrame) : 0.0F;
}

StereoFrame limited(const StereoFrame& frame) { return {within_reason(frame.left), within_reason(frame.right)}; }

mpg123_handle_struct* new_handle() {
  static const int ready = mpg123_init();
  mpg123_handle* handle = ready == MPG123_OK ? mpg123_new(nullptr, nullptr) : nullptr;
  if (handle == nullptr) throw std::bad_alloc();
  constexpr long kOn =
      MPG123_QUIET | MPG123_FORCE_FLOAT | MPG123_FORCE_STEREO | MPG123_IGNORE_INFOFRAME | MPG123_NO_READAHEAD;
  mpg123_param(handle, MPG123_ADD_FLAGS, kOn, 0.0);
  mpg123_param(handle, MPG123_REMOVE_FLAGS, MPG123_GAPLESS | MPG123_AUTO_RESAMPLE, 0.0);
  return handle;
}

}  // namespace

void Mp3Decoder::Delete::operator()(mpg123_handle_struct* handle) const noexcept { mpg123_delete(handle); }

std::unique_ptr<Decoder> Mp3Decoder::open(std::shared_ptr<const SongFile> file, std::int64_t begin, std::int64_t end,
                                          WalkGuard guard) {
  auto index = Mp3Index::open(file, begin, end, std::move(guard));
  if (index == nullptr) return nullptr;
  return std::make_unique<Mp3Decoder>(std::move(file), std::move(index));
}

Mp3Decoder::Mp3Decoder(std::shared_ptr<const SongFile> file, std::unique_ptr<Mp3Index> index)
    : index_(std::move(index)), window_(std::move(file), index_->end()), silence_(kMostSamples) {
  go_to(0, index_->first_sample(0));
}

int Mp3Decoder::rate() const { return header().rate; }

int Mp3Decoder::rate_of(std::size_t section) const {
  return section < index_->sections().size() ? index_->sections()[section].header.rate : 0;
}

Frames Mp3Decoder::reach(std::size_t section, Frames frame) {
  const Frames skip = index_->first_sample(section);
  return index_->end_of_sound(section, skip + frame, true) - skip;
}

Frames Mp3Decoder::length(std::size_t section) { return index_->end_of_sound(section) - index_->first_sample(section); }

std::size_t Mp3Decoder::read(std::span<StereoFrame> out) {
  const Frames end = index_->end_of_sound(section_, position_ + static_cast<Frames>(out.size()));
  const auto count = static_cast<std::size_t>(std::max<Frames>(0, end - position_));
  std::size_t done = 0;
  if (!arrived_) arrive();
  while (done < count) {
    if (ready_.empty() && !decode_next()) break;
    const std::size_t some = std::min(ready_.size(), count - done);
    std::transform(ready_.begin(), ready_.begin() + static_cast<std::ptrdiff_t>(some),
                   out.begin() + static_cast<std::ptrdiff_t>(done), limited);
    ready_ = ready_.subspan(some);
    done += some;
  }
  position_ += static_cast<Frames>(done);
  return done;
}

bool Mp3Decoder::next_section() {
  if (section_ + 1 >= index_->sections().size()) return false;
  go_to(section_ + 1, index_->first_sample(section_ + 1));
  return true;
}

void Mp3Decoder::seek(std::size_t section, Frames frame) { go_to(section, index_->first_sample(section) + frame); }

void Mp3Decoder::go_to(std::size_t section, Frames sample) {
  section_ = section;
  position_ = sample;
  arrived_ = false;
}

void Mp3Decoder::arrive() {
  ready_ = {};
  fresh_ = true;
  const Frames samples = header().samples;
  const std::size_t target = index_->sections()[section_].first + static_cast<std::size_t>(position_ / samples);
  next_frame_ = target;
  if (!index_->leap_to(target)) return;
  arrived_ = true;
  next_frame_ = first_warm_frame(target);
  while (next_frame_ <= target && decode_next()) {
  }
  ready_ = ready_.subspan(std::min(ready_.size(), static_cast<std::size_t>(position_ % samples)));
}

// The frame from which to decode so that `frame` comes out as if decoded from the beginning of its run.
std::size_t Mp3Decoder::first_warm_frame(std::size_t frame) {
  const std::size_t run = index_->frames().run_of(frame).first;
  const std::size_t first = std::max(run, frame - std::min(frame, kMostWarmFrames));
  std::int64_t reservoir = 0;
  std::size_t from = frame;
  while (from > first && (reservoir < kReservoirBytes || frame - from < kLeastWarmFrames)) {
    --from;
    reservoir += reservoir_bytes(from);
  }
  from -= std::min(from - first, kSettlingFrames);
  return from - (from - run) % kSynthesisPeriod;
}

// What a frame can hold of the sound of the frames after it, at least.
std::int64_t Mp3Decoder::reservoir_bytes(std::size_t frame) {
  const auto place = index_->frames().place(frame, window_);
  const int overhead = static_cast<int>(MpegHeader::kBytes) + kChecksumBytes + header().side_info_bytes();
  return place ? std::max(0, place->bytes - overhead) : 0;
}

bool Mp3Decoder::decode_next() {
  if (!index_->reach(next_frame_)) return false;
  return decode(next_frame_++);
}

bool Mp3Decoder::decode(std::size_t frame) {
  const auto samples = static_cast<std::size_t>(header().samples);
  const auto place = index_->frames().place(frame, window_);
  const std::uint8_t* bytes = place && place->bytes > 0 ? bytes_of(*place) : nullptr;
  const bool lost = place && place->bytes == 0;
  ready_ = {};
  if (bytes == nullptr && !lost) return false;
  ready_ = std::span<const StereoFrame>(silence_).first(samples);
  if (lost) return true;
  const Mp3FrameTable::Run run = index_->frames().run_of(frame);
  if (fresh_ || run.first == frame) open_run(run);
  fresh_ = !feed(bytes, static_cast<std::size_t>(place->bytes));
  return true;
}

// nullptr if they cannot be read any more.
const std::uint8_t* Mp3Decoder::bytes_of(const Mp3FrameTable::Place& place) {
  const auto count = static_cast<std::size_t>(place.bytes);
  const std::int64_t there = window_.end() - place.offset;
  if (place.bytes <= there) return window_.at(place.offset, count);
  const std::uint8_t* bytes = window_.at(place.offset, static_cast<std::size_t>(there));
  if (bytes == nullptr) return nullptr;
  padded_.assign(bytes, bytes + there);
  padded_.resize(count);
  return padded_.data();
}

void Mp3Decoder::open_run(const Mp3FrameTable::Run& run) {
  if (handle_ == nullptr) handle_.reset(new_handle());
  const long size = run.free_format_bytes > 0 ? run.free_format_bytes - static_cast<long>(MpegHeader::kBytes) : -1;
  mpg123_param(handle_.get(), MPG123_FREEFORMAT_SIZE, size, 0.0);
  mpg123_open_feed(handle_.get());
}

// False if the frame could not be decoded; then silence stands for it.
bool Mp3Decoder::feed(const std::uint8_t* bytes, std::size_t count) {
  if (mpg123_feed(handle_.get(), bytes, count) != MPG123_OK) return false;
  unsigned char* sound = nullptr;
  std::size_t size = 0;
  int result = MPG123_NEW_FORMAT;
  for (int tries = 0; result == MPG123_NEW_FORMAT && tries < 3; ++tries) {
    result = mpg123_decode_frame(handle_.get(), nullptr, &sound, &size);
  }
  if (result != MPG123_OK || sound == nullptr || size != ready_.size_bytes()) return false;
  ready_ = {reinterpret_cast<const StereoFrame*>(sound), ready_.size()};
  return true;
}

}  // namespace tandem

#include "platform/output/device_feed.h"

#include <algorithm>
#include <cstring>
#include <exception>

namespace tandem {

namespace {

constexpr std::size_t kPiece = 512;  // frames encoded at once

// Full scale is 2^31; the greatest float below it is 2^31 - 128.
std::int32_t to_int32(float sample) noexcept {
  return static_cast<std::int32_t>(std::clamp(sample, -1.0F, 1.0F - 0x1p-24F) * 0x1p31F);
}

struct Sample32 {  // one frame
  std::int32_t left;
  std::int32_t right;
};

}  // namespace

DeviceFeed::DeviceFeed(OutputRing& ring, const DeviceFormat& format)
    : ring_(ring), format_(format), ring_base_(ring.taken()) {
  if (format.rate == kSampleRate) return;
  try {
    converter_.emplace(format.rate);
    most_held_ = RateConverter::most_held(format.rate);
  } catch (const std::exception&) {
    broken_ = true;
  }
}

std::size_t DeviceFeed::read(void* place, std::size_t frames) noexcept {
  const std::size_t made = fill(place, frames, kNoEnd);
  if (converter_ && made < frames) most_held_ = std::max(most_held_, held());
  return made;
}

std::size_t DeviceFeed::read_end(void* place, std::size_t frames, std::uint64_t up_to) noexcept {
  const std::size_t made = fill(place, frames, up_to);
  if (made == 0) begin_again();
  return made;
}

std::size_t DeviceFeed::ring_frames_for(std::size_t device_frames) const noexcept {
  if (!converter_ || device_frames == 0) return device_frames;
  const std::uint64_t needed = format_.ring_frames(made_ - made_base_ + device_frames) + 1 + most_held_;
  const std::uint64_t taken = ring_.taken() - ring_base_;
  return static_cast<std::size_t>(needed - std::min(needed, taken));
}

std::uint64_t DeviceFeed::position_of(std::uint64_t device_frames) const noexcept {
  if (device_frames >= made_base_)
    return std::min(ring_base_ + format_.ring_frames(device_frames - made_base_), ring_.taken());
  return ring_base_ - std::min(format_.ring_frames(made_base_ - device_frames), ring_base_);
}

std::size_t DeviceFeed::fill(void* place, std::size_t frames, std::uint64_t up_to) noexcept {
  std::array<StereoFrame, kPiece> piece;
  std::size_t done = 0;
  while (done < frames) {
    const std::size_t count = make(std::span(piece).first(std::min(frames - done, piece.size())), up_to);
    if (count == 0) break;
    encode(std::span(piece).first(count), static_cast<std::byte*>(place) + done * format_.frame_bytes());
    done += count;
  }
  made_ += done;
  return done;
}

std::size_t DeviceFeed::make(std::span<StereoFrame> out, std::uint64_t up_to) noexcept {
  if (broken_) return 0;
  if (!converter_) return take(out, up_to);
  const std::size_t made = convert(out, up_to);
  return made > 0 || up_to == kNoEnd ? made : converter_->finish(out);
}

std::size_t DeviceFeed::take(std::span<StereoFrame> out, std::uint64_t up_to) noexcept {
  const std::uint64_t taken = ring_.taken();
  const std::uint64_t left = up_to - std::min(up_to, taken);
  return ring_.read(out.first(static_cast<std::size_t>(std::min<std::uint64_t>(left, out.size()))));
}

std::size_t DeviceFeed::convert(std::span<StereoFrame> out, std::uint64_t up_to) noexcept {
  std::size_t made = 0;
  for (;;) {
    const auto waiting = std::span(waiting_).subspan(waiting_from_, waiting_to_ - waiting_from_);
    const RateConverter::Moved moved = converter_->convert(waiting, out.subspan(made));
    waiting_from_ += moved.taken;
    made += moved.made;
    broken_ = moved.failed;
    if (made == out.size() || broken_) return made;
    if (waiting_from_ < waiting_to_) continue;
    waiting_from_ = 0;
    waiting_to_ = take(waiting_, up_to);
    if (waiting_to_ == 0) return made;
  }
}

void DeviceFeed::encode(std::span<const StereoFrame> frames, void* place) noexcept {
  switch (format_.encoding) {
    case SampleEncoding::kInt16:
      quantizer_.convert(frames, {static_cast<Sample16*>(place), frames.size()});
      break;
    case SampleEncoding::kInt32:
      std::transform(frames.begin(), frames.end(), static_cast<Sample32*>(place), [](const StereoFrame& frame) {
        return Sample32{to_int32(frame.left), to_int32(frame.right)};
      });
      break;
    case SampleEncoding::kFloat32:
      std::memcpy(place, frames.data(), frames.size_bytes());
      break;
  }
}

// What a finished sound has left over of a frame is dropped: positions are exact again where the next one begins.
void DeviceFeed::begin_again() noexcept {
  ring_base_ = ring_.taken();
  made_base_ = made_;
}

std::uint64_t DeviceFeed::held() const noexcept {
  const std::uint64_t taken = ring_.taken() - ring_base_;
  return taken - std::min(taken, format_.ring_frames(made_ - made_base_));
}

}  // namespace tandem

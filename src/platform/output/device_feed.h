// The ring's frames as a device takes them: at its rate and in its encoding. Counts both ends, so that a position in
// the device's frames can be given in those of the ring.
// The thread that serves the device, which must be the ring's reader. Nothing here locks.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "engine/device/output_ring.h"
#include "engine/device/quantizer16.h"
#include "platform/output/device_format.h"
#include "platform/output/rate_converter.h"

namespace tandem {

class DeviceFeed {
 public:
  DeviceFeed(OutputRing& ring, const DeviceFormat& format);

  const DeviceFormat& format() const noexcept { return format_; }
  // There is no conversion to the device's rate, or it has failed: nothing comes any more.
  bool broken() const noexcept { return broken_; }
  // Writes up to `frames` device frames to `place`; returns how many, fewer only if the ring ran dry or it is
  // broken.
  std::size_t read(void* place, std::size_t frames) noexcept;
  // The same for the end of the sound: takes the ring up to that count, then the converter's rest. 0: all is out, and
  // what is read next begins again.
  std::size_t read_end(void* place, std::size_t frames, std::uint64_t up_to) noexcept;
  // How many frames the ring must hold so that read() can give `device_frames`.
  std::size_t ring_frames_for(std::size_t device_frames) const noexcept;

  std::uint64_t made() const noexcept { return made_; }  // device frames, ever
  // The ring's count when the device has played `device_frames` of its own.
  std::uint64_t position_of(std::uint64_t device_frames) const noexcept;

 private:
  static constexpr std::uint64_t kNoEnd = UINT64_MAX;

  std::size_t take(std::span<StereoFrame> out, std::uint64_t up_to) noexcept;
  std::size_t convert(std::span<StereoFrame> out, std::uint64_t up_to) noexcept;
  std::size_t make(std::span<StereoFrame> out, std::uint64_t up_to) noexcept;
  std::size_t fill(void* place, std::size_t frames, std::uint64_t up_to) noexcept;
  void encode(std::span<const StereoFrame> frames, void* place) noexcept;
  void begin_again() noexcept;
  std::uint64_t held() const noexcept;

  OutputRing& ring_;
  DeviceFormat format_;
  std::optional<RateConverter> converter_;  // empty at our own rate
  bool broken_ = false;
  Quantizer16 quantizer_;
  std::array<StereoFrame, 64> waiting_;  // out of the ring, not yet in the converter
  std::size_t waiting_from_ = 0;
  std::size_t waiting_to_ = 0;
  std::uint64_t most_held_ = 0;  // by the converter when it had nothing more to give, in the ring's frames
  std::uint64_t made_ = 0;
  std::uint64_t ring_base_;      // where the sound that plays began: in the ring's frames,
  std::uint64_t made_base_ = 0;  // and in the device's
};

}  // namespace tandem

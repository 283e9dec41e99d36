// How a device takes its frames, as far as we choose it: always two channels, interleaved, in the machine's byte order.
// Any thread.
#pragma once

#include <cstddef>
#include <cstdint>

#include "engine/core/frames.h"

namespace tandem {

// Rates that are given to a device as its own, frames a second.
inline constexpr unsigned kLowestRate = 8000;
inline constexpr unsigned kHighestRate = 384000;

enum class SampleEncoding : std::uint8_t {
  kInt16,    // with dither where the sound needs it
  kInt32,    // for devices of 24 bits and more
  kFloat32,  // the same, where the server takes it: full scale 1.0
};

struct DeviceFormat {
  SampleEncoding encoding = SampleEncoding::kInt16;
  int rate = kSampleRate;  // frames a second

  friend bool operator==(const DeviceFormat&, const DeviceFormat&) = default;

  std::size_t frame_bytes() const noexcept { return encoding == SampleEncoding::kInt16 ? 4 : 8; }
  // The time of `frames` at 44100 a second in frames of the device, and the other way round; rounded down.
  std::uint64_t device_frames(std::uint64_t frames) const noexcept {
    return frames * static_cast<std::uint64_t>(rate) / static_cast<std::uint64_t>(kSampleRate);
  }
  std::uint64_t ring_frames(std::uint64_t device_frames) const noexcept {
    return device_frames * static_cast<std::uint64_t>(kSampleRate) / static_cast<std::uint64_t>(rate);
  }
};

}  // namespace tandem

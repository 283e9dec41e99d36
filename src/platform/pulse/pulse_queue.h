// How much a sound server is asked to queue.
// Any thread, no state.
#pragma once

#include <pulse/def.h>

#include <cstdint>

#include "platform/output/device_format.h"

namespace tandem {

struct PulseQueue {
  int buffer_bytes = 5120;  // of one buffer, in our own frames of 4 bytes at 44100 Hz
  int depth = 2;            // in buffers

  std::uint64_t frames() const noexcept {
    return static_cast<std::uint64_t>(buffer_bytes / 4) * static_cast<std::uint64_t>(depth);
  }
  friend bool operator==(const PulseQueue&, const PulseQueue&) = default;
};

// In the server's terms: bytes of the stream's format.
pa_buffer_attr attributes_of(const PulseQueue& queue, const DeviceFormat& format);
// For a queue that is to become longer while it plays, until it is full: the device takes half of what the attributes
// above leave beside two requests, at once, and would find the former queue in place of the new one. These leave it as
// much as it had, in larger requests.
pa_buffer_attr growing_attributes(const PulseQueue& from, const PulseQueue& to, const DeviceFormat& format);

}  // namespace tandem

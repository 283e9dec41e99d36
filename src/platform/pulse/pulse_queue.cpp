#include "platform/pulse/pulse_queue.h"

#include <algorithm>
#include <cstdint>

namespace tandem {

namespace {

// A request may be a quarter of the queue at most: the server gives the device half of what is left beside two
// requests, and with nothing left it would run at its shortest latency and wake 2000 times a second.
constexpr int kDeep = 8;  // buffers

}  // namespace

pa_buffer_attr attributes_of(const PulseQueue& queue, const DeviceFormat& format) {
  const auto frame = static_cast<std::uint32_t>(format.frame_bytes());
  const auto whole_frames = [frame](std::uint32_t bytes) { return bytes / frame * frame; };
  const auto frames = format.device_frames(static_cast<std::uint64_t>(queue.buffer_bytes / 4));
  const std::uint32_t buffer = static_cast<std::uint32_t>(frames) * frame;
  const std::uint32_t whole = buffer * static_cast<std::uint32_t>(queue.depth);
  const std::uint32_t quarter = whole_frames(whole / 4);
  pa_buffer_attr attributes = {};
  attributes.maxlength = UINT32_MAX;
  attributes.tlength = whole;
  // Begins with what survives a late wake-up, two buffers (58 ms) of a queue of three.
  attributes.prebuf = std::min(2 * buffer, 3 * quarter);
  // A deep queue is filled in few large pieces, to wake up seldom; a short one in small ones, to be as full as it may
  // be.
  attributes.minreq = queue.depth >= kDeep ? quarter : std::min(whole_frames(buffer / 8), quarter);
  attributes.fragsize = UINT32_MAX;
  return attributes;
}

pa_buffer_attr growing_attributes(const PulseQueue& from, const PulseQueue& to, const DeviceFormat& format) {
  const auto frame = static_cast<std::uint32_t>(format.frame_bytes());
  const pa_buffer_attr former = attributes_of(from, format);
  pa_buffer_attr attributes = attributes_of(to, format);
  const std::uint32_t beside_requests = former.tlength - 2 * former.minreq;
  attributes.minreq = std::max(attributes.minreq, (attributes.tlength - beside_requests) / 2 / frame * frame);
  return attributes;
}

}  // namespace tandem

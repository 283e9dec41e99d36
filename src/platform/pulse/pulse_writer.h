// Writes the ring's frames into one stream of the server, in the stream's format. Lives on the loop's thread.
#pragma once

#include <pulse/stream.h>

#include <cstddef>
#include <cstdint>

#include "platform/output/device_feed.h"

namespace tandem {

class PulseWriter {
 public:
  // The stream, which may be null, is the ring's reader and outlives this.
  PulseWriter(pa_stream* stream, OutputRing& ring, const DeviceFormat& format) : stream_(stream), feed_(ring, format) {}

  const DeviceFormat& format() const noexcept { return feed_.format(); }
  bool broken() const noexcept { return feed_.broken(); }
  // Up to `frames` frames of the device, as many as the ring gives; returns how many are missing.
  std::size_t write(std::size_t frames);
  // The ring's frames up to that count, and all that belongs to their sound.
  void write_end(std::uint64_t up_to);
  // How many frames the ring must hold for `frames` frames of the device.
  std::size_t ring_frames_for(std::size_t frames) const noexcept { return feed_.ring_frames_for(frames); }
  // The ring's count at that time of the stream.
  std::uint64_t position_at(pa_usec_t time) const noexcept;

 private:
  std::size_t write_piece(std::size_t frames, const auto& read);

  pa_stream* stream_;
  DeviceFeed feed_;
};

}  // namespace tandem

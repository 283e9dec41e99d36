// How much a sound server is asked to queue.
#pragma once

#include <pulse/def.h>

namespace tandem {

struct PulseQueue {
  int buffer_bytes = 5120;
  int depth = 2;  // in buffers
  int bytes() const noexcept { return buffer_bytes * depth; }
  friend bool operator==(const PulseQueue&, const PulseQueue&) = default;
};

// In the server's terms.
pa_buffer_attr attributes_of(const PulseQueue& queue);
// For a queue that is to become longer while it plays, until it is full: the device takes half of what the attributes
// above leave beside two requests, at once, and would find the former queue in place of the new one. These leave it as
// much as it had, in larger requests.
pa_buffer_attr growing_attributes(const PulseQueue& from, const PulseQueue& to);

}  // namespace tandem

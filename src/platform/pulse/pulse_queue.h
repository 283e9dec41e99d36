// How much a sound server is asked to queue.
#pragma once

#include <pulse/def.h>

namespace tandem {

struct PulseQueue {
  int buffer_bytes = 5120;
  int depth = 2;  // in buffers
  friend bool operator==(const PulseQueue&, const PulseQueue&) = default;
};

// As the server wants it told.
pa_buffer_attr attributes_of(const PulseQueue& queue);

}  // namespace tandem

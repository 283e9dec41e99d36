#include "engine/device/simulated_output.h"

#include <array>

namespace tandem {

void SimulatedOutput::drain() {
  std::array<Sample16, 1024> block;
  while (const std::size_t count = ring_.read(block))
    if (sink_) sink_(std::span(block).first(count));
}

}  // namespace tandem

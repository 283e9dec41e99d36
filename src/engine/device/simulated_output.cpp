#include "engine/device/simulated_output.h"

#include <array>
#include <utility>
#include <vector>

#include "engine/device/quantizer16.h"

namespace tandem {

SimulatedOutput::Sink sink_of_16_bits(std::function<void(std::span<const Sample16>)> sink) {
  return [sink = std::move(sink), quantizer = Quantizer16()](std::span<const StereoFrame> frames) mutable {
    std::vector<Sample16> samples(frames.size());
    quantizer.convert(frames, samples);
    sink(samples);
  };
}

void SimulatedOutput::drain() {
  std::array<StereoFrame, 1024> block;
  while (const std::size_t count = ring_.read(block))
    if (sink_) sink_(std::span(block).first(count));
}

}  // namespace tandem

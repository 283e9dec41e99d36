#include "engine/equalizer_filter.h"

#include <algorithm>

namespace tandem {

namespace {

// The inverse transform gives 512 times the signal; the filter takes that back.
constexpr float kScale = 1.0F / static_cast<float>(kTransform);

Spectrum partition_spectrum(std::span<const float> taps, std::size_t index) {
  const bool last = index + 1 == kPartitions;
  const std::size_t first = std::min(index * kPartition, taps.size());
  const std::size_t count = std::min(last ? kPartition + 1 : kPartition, taps.size() - first);
  Spectrum spectrum;
  for (std::size_t i = 0; i < count; ++i) spectrum.re[i] = taps[first + i] * kScale;
  transform_forward(spectrum);
  return spectrum;
}

}  // namespace

EqualizerFilter::EqualizerFilter(std::span<const float> taps) {
  for (std::size_t i = 0; i < kPartitions; ++i) partitions_.put(i, partition_spectrum(taps, i));
}

}  // namespace tandem

#include "engine/equalizer/equalizer_filter.h"

#include <algorithm>
#include <array>

namespace tandem {

namespace {

// The inverse transform gives 512 times the signal; the filter takes that back.
constexpr float kScale = 1.0F / static_cast<float>(kTransform);

// The 512 points of a partition: its taps, then silence (but for the last one's additional tap).
std::array<Block, 2> points_of(std::span<const float> taps, std::size_t partition) {
  const std::size_t first = std::min(partition * kPartition, taps.size());
  const std::size_t most = partition + 1 == kPartitions ? kPartition + 1 : kPartition;
  const std::size_t count = std::min(most, taps.size() - first);
  std::array<Block, 2> points{};
  for (std::size_t i = 0; i < count; ++i) points[i / kPartition].left[i % kPartition] = taps[first + i] * kScale;
  return points;
}

}  // namespace

EqualizerFilter::EqualizerFilter(std::span<const float> taps) {
  for (std::size_t i = 0; i < kPartitions; ++i) {
    const std::array<Block, 2> points = points_of(taps, i);
    transform_forward(points[0], points[1], partitions_, i);
  }
}

}  // namespace tandem

// One finished equalizer filter: a minimum-phase impulse response of 5121 taps, as the spectra of 20 partitions.
// Immutable once made; made on any thread, read by the render thread, freed on any thread.
#pragma once

#include <span>

#include "engine/equalizer/fft_block.h"

namespace tandem {

class EqualizerFilter {
 public:
  // 19 partitions of 256 taps and a last one of 257: overlap-save with 512 points has room for one more.
  static constexpr std::size_t kTaps = kPartitions * kPartition + 1;

  explicit EqualizerFilter(std::span<const float> taps);  // at most kTaps

  const SpectrumTable& partitions() const noexcept { return partitions_; }

  // A link for lists of filters on their way to be freed; belongs to the filter's holder.
  mutable const EqualizerFilter* next_retired = nullptr;

 private:
  SpectrumTable partitions_;
};

}  // namespace tandem

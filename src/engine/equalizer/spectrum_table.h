// What the equalizer's Fourier arithmetic works on: blocks of sound, their spectra, tables of these.
// Left is the real part and right the imaginary part, so that one complex transform carries both channels.
// Bins lie in an order of the transform's own, the same for every spectrum; only the inverse undoes it.
// Values; any thread.
#pragma once

#include <array>
#include <cstddef>

namespace tandem {

inline constexpr std::size_t kPartition = 256;             // frames of sound in one block, and taps in one partition
inline constexpr std::size_t kTransform = 2 * kPartition;  // points of a transform
inline constexpr std::size_t kPartitions = 20;             // partitions of a filter

// One block of both channels. Not set by its definition alone; Block{} is silence.
struct alignas(64) Block {
  std::array<float, kPartition> left;
  std::array<float, kPartition> right;
};

// The 512 bins of one spectrum. Not set by its definition alone; Spectrum{} is zero.
struct alignas(64) Spectrum {
  std::array<float, kTransform> re;
  std::array<float, kTransform> im;
};

inline constexpr std::size_t kAhead = 4;  // blocks whose sums are made at once
using SpectraAhead = std::array<Spectrum, kAhead>;

// The spectra of 20 blocks or partitions, stored so that one group of bins of all of them is contiguous.
// After the last entry some more read as zero.
class SpectrumTable {
 public:
  static constexpr std::size_t kGroup = 16;          // bins in a group
  static constexpr std::size_t kEntry = 2 * kGroup;  // real parts, then imaginary parts

  // Entry 0 of a bin; entry n lies n * kEntry further on, the imaginary part kGroup after the real one.
  const float* at(std::size_t bin) const noexcept { return values_.data() + place(bin); }
  float* at(std::size_t bin) noexcept { return values_.data() + place(bin); }

 private:
  static constexpr std::size_t kGroups = kTransform / kGroup;
  static constexpr std::size_t kGroupStride = kEntry * (kPartitions + kAhead - 1);

  static constexpr std::size_t place(std::size_t bin) { return bin / kGroup * kGroupStride + bin % kGroup; }

  alignas(64) std::array<float, kGroups * kGroupStride> values_{};
};

}  // namespace tandem

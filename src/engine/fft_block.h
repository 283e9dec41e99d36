// The Fourier arithmetic of the equalizer: transforms of 512 complex points and sums of products of spectra.
// Left is the real part and right the imaginary part, so that one complex transform carries both channels.
// Bins lie in an order of the transform's own, the same for every spectrum; only the inverse undoes it.
// Any thread; no state, no allocation. Uses AVX2 or AVX-512 where the processor has them.
// Method: decimation in frequency of radix 8 forward, decimation in time back (Cooley and Tukey 1965).
#pragma once

#include <array>
#include <cstddef>

namespace tandem {

inline constexpr std::size_t kPartition = 256;             // frames of sound in one block, and taps in one partition
inline constexpr std::size_t kTransform = 2 * kPartition;  // points of a transform
inline constexpr std::size_t kPartitions = 32;             // partitions of a filter

// 512 complex numbers, in time or in frequency.
struct alignas(64) Spectrum {
  std::array<float, kTransform> re{};
  std::array<float, kTransform> im{};
};

// One block of both channels.
struct alignas(64) Block {
  std::array<float, kPartition> left{};
  std::array<float, kPartition> right{};
};

// The spectra of 32 blocks or partitions, stored so that one group of bins of all 32 is contiguous.
class SpectrumTable {
 public:
  static constexpr std::size_t kGroup = 16;                    // bins in a group
  static constexpr std::size_t kGroups = kTransform / kGroup;  //
  static constexpr std::size_t kEntry = 2 * kGroup;            // real parts, then imaginary parts
  static constexpr std::size_t kGroupStride =
      kEntry * kPartitions + kEntry;  // not a multiple of the cache's 4096 bytes

  void put(std::size_t slot, const Spectrum& spectrum) noexcept;
  const float* group(std::size_t index) const noexcept { return values_.data() + index * kGroupStride; }

 private:
  alignas(64) std::array<float, kGroups * kGroupStride> values_{};
};

// In place: 512 points of time become their spectrum.
void transform_forward(Spectrum& points) noexcept;

// The later half of the inverse transform, times 512: with overlap-save the half that is free of wrap-around.
void transform_back(const Spectrum& spectrum, Block& later_half) noexcept;

// With x(b) the spectrum of block b, stored in slot b mod 32, and h(p) that of partition p:
//   now  = sum over p = 0 .. 31 of h(p) x(newest - p), the whole output of the newest block;
//   next = sum over p = 1 .. 31 of h(p) x(newest + 1 - p), what is already known of the block that follows.
// Both are made in one go because every spectrum is then read once for two blocks.
void convolve_pair(const SpectrumTable& x, std::size_t newest, const SpectrumTable& h, Spectrum& now,
                   Spectrum& next) noexcept;

// sum += h(0) x(newest)
void convolve_newest(const SpectrumTable& x, std::size_t newest, const SpectrumTable& h, Spectrum& sum) noexcept;

}  // namespace tandem

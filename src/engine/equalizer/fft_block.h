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

// The spectrum of two blocks in a row becomes entry `slot` of the table.
void transform_forward(const Block& earlier, const Block& later, SpectrumTable& table, std::size_t slot) noexcept;

// The later half of the inverse transform, times 512: with overlap-save the half that is free of wrap-around.
void transform_back(const Spectrum& spectrum, Block& later_half) noexcept;

// With x(b) the spectrum of block b, stored in slot b mod 20, and h(p) that of partition p:
//   sums[k] = sum over p = k .. 19 of h(p) x(newest + k - p),
// the whole output of the newest block, and what is already known of the three that follow. All are made in one go
// because every spectrum is then fetched once for four blocks: memory, not arithmetic, is what this waits for.
void convolve_ahead(const SpectrumTable& x, std::size_t newest, const SpectrumTable& h, SpectraAhead& sums) noexcept;

// sum += sum over p = 0 .. count - 1 of h(p) x(newest - p): what was not yet known.
void convolve_rest(const SpectrumTable& x, std::size_t newest, const SpectrumTable& h, std::size_t count,
                   Spectrum& sum) noexcept;

}  // namespace tandem

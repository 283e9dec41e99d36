// The Fourier arithmetic of the equalizer: transforms of 512 complex points and sums of products of spectra.
// Any thread; no state, no allocation. Uses AVX2 or AVX-512 where the processor has them.
// Method: decimation in frequency of radix 8 forward, decimation in time back (Cooley and Tukey 1965).
#pragma once

#include <cstddef>

#include "engine/equalizer/spectrum_table.h"

namespace tandem {

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

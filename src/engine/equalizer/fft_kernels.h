// The equalizer's Fourier arithmetic, compiled once for each kind of processor; see fft_block.h for what each does.
// Private to fft_block.cpp and the tests. Any thread, no state.
#pragma once

#include <cstddef>
#include <vector>

#include "engine/equalizer/spectrum_table.h"

namespace tandem {

struct Kernels {
  const char* name;
  void (*forward)(const Block& earlier, const Block& later, SpectrumTable& table, std::size_t slot);
  void (*back)(const Spectrum& spectrum, Block& later_half);
  void (*ahead)(const SpectrumTable& x, std::size_t newest, const SpectrumTable& h, SpectraAhead& sums);
  void (*rest)(const SpectrumTable& x, std::size_t newest, const SpectrumTable& h, std::size_t count, Spectrum& sum);
};

// Those that this processor can run, the fastest last. They differ in the last bits of their results.
std::vector<Kernels> usable_kernels();

}  // namespace tandem

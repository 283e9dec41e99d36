// The two inner loops of the pitch stage, in the widest vectors that the processor has (AVX2, else SSE, else plain
// code). Any thread, no state, no allocation. The choice is made once, when the program starts.
#pragma once

#include <cstddef>
#include <span>

#include "engine/core/frames.h"

namespace tandem {

inline constexpr std::size_t kKernelTaps = 72;     // frames that one interpolated frame is made of
inline constexpr std::size_t kKernelPhases = 512;  // rows of a bank between two frames; there is one row more

// The frame of the rows that lies at the reading position itself: positions reach from this many frames before
// (inclusive) to kKernelTaps - kKernelBefore frames behind (exclusive).
inline constexpr std::size_t kKernelBefore = kKernelTaps / 2 - 1;

// Interpolates the sound at `positions` (in frames from left[0] and right[0], at least kKernelBefore, any order).
// bank: (kKernelPhases + 1) rows of kKernelTaps, from fraction 0 to fraction 1. out: as many as positions.
void interpolate(const float* bank, const float* left, const float* right, std::span<const double> positions,
                 StereoFrame* out) noexcept;

// The sum of the products.
float dot_product(const float* a, const float* b, std::size_t count) noexcept;

// One way to do both; they differ by rounding only.
struct PitchKernels {
  decltype(&interpolate) read;
  decltype(&dot_product) multiply;
};

// The ways that this processor knows, the fastest first: that is the one used.
std::span<const PitchKernels> pitch_kernels() noexcept;

}  // namespace tandem

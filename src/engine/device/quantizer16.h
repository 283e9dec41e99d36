// Float sound to 16 bits, with triangular dither of two steps (TPDF) on every sample that 16 bits cannot hold: rounding
// then leaves no harmonics and no lower limit, only an even noise (Lipshitz, Wannamaker and Vanderkooy 1992,
// "Quantization and dither"). A sample that stands on a step has no error to spread and passes exactly: sound that the
// chain has not changed comes out bit for bit, and silence is zero. For one thread at a time; no allocation, no lock.
#pragma once

#include <cstdint>
#include <span>

#include "engine/core/frames.h"

namespace tandem {

class Quantizer16 {
 public:
  // As many frames as `from` has; beyond full scale is clipped. The same noise on every run.
  void convert(std::span<const StereoFrame> from, std::span<Sample16> to) noexcept;

 private:
  std::int16_t convert(float sample) noexcept;
  float triangular() noexcept;

  std::uint32_t noise_ = 0x2545F491U;
};

}  // namespace tandem

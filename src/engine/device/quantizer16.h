// Float sound to 16 bits. Where 16 bits cannot hold the samples, all of them get triangular dither of two steps (TPDF):
// rounding then leaves no harmonics and no lower limit, only an even noise (Lipshitz, Wannamaker and Vanderkooy 1992,
// "Quantization and dither"). The dither begins with the first sample that stands on no step and ends 1 ms after the
// last one, so that the noise does not come and go with samples that stand on a step by chance, nor with the zeros of a
// quiet fade. Sound that the chain has not changed comes out bit for bit, and silence is zero. For one thread at a
// time; no allocation, no lock.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "engine/core/frames.h"

namespace tandem {

class Quantizer16 {
 public:
  // As many frames as `from` has; beyond full scale is clipped. The same noise on every run.
  void convert(std::span<const StereoFrame> from, std::span<Sample16> to) noexcept;

 private:
  static constexpr int kHold = kSampleRate / 1000;  // frames of any rate

  void dither(std::span<float> steps) noexcept;
  void make_noise() noexcept;

  // Any numbers but 0: where the generators begin.
  std::array<std::uint32_t, 8> generators_ = {0x2545F491U, 0x9E3779B9U, 0x7F4A7C15U, 0xBF58476DU,
                                              0x1CE4E5B9U, 0x94D049BBU, 0x133111EBU, 0xD6E8FEB8U};
  std::array<float, 256> noise_ = {};  // in steps, -1 .. 1
  std::size_t used_ = noise_.size();   // of it
  int dither_for_ = 0;                 // frames to dither
};

}  // namespace tandem

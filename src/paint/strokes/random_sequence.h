// Pseudo-random numbers that are the same on every run, for textures and sample pictures. One thread at a time.
// Method: a linear congruential generator with the constants of Press et al., "Numerical Recipes" (7.1, ranqd1).
#pragma once

#include <cstdint>

namespace tandem {

class RandomSequence {
 public:
  explicit RandomSequence(std::uint32_t seed) : state_(seed) {}
  double next() {  // 0 .. 1, without 1
    state_ = state_ * 1664525U + 1013904223U;
    return state_ / 4294967296.0;
  }

 private:
  std::uint32_t state_;
};

}  // namespace tandem

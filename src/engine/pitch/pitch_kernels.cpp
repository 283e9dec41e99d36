#include "engine/pitch/pitch_kernels.h"

// One function, compiled for two processors; the loader takes the better one. The sanitizers' run-time libraries are
// not ready yet when the loader chooses, and Clang does not know this processor level: both get the baseline.
#if defined(__x86_64__) && !defined(__clang__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define TANDEM_AVX2_TOO [[gnu::target_clones("arch=x86-64-v3", "default")]]
#else
#define TANDEM_AVX2_TOO
#endif

// No vector passes through a call (everything is inlined), so the calling convention cannot matter.
#pragma GCC diagnostic ignored "-Wpsabi"

namespace tandem {
namespace {

constexpr std::size_t kLanes = 8;
using Lanes [[gnu::vector_size(kLanes * sizeof(float))]] = float;
static_assert(kKernelTaps % kLanes == 0);

[[gnu::always_inline]] inline Lanes load(const float* from) {
  Lanes value;
  __builtin_memcpy(&value, from, sizeof value);
  return value;
}

[[gnu::always_inline]] inline float sum(const Lanes& v) {
  const auto fours = __builtin_shufflevector(v, v, 0, 1, 2, 3) + __builtin_shufflevector(v, v, 4, 5, 6, 7);
  const auto twos = fours + __builtin_shufflevector(fours, fours, 2, 3, 0, 1);
  return twos[0] + twos[1];
}

// Where one frame is taken from: the lower one of two neighbouring rows, the weight of the upper one, the first tap.
struct Reading {
  const float* row;
  float part;
  std::size_t first;
};

[[gnu::always_inline]] inline Reading reading_at(const float* bank, double position) {
  const auto whole = static_cast<std::size_t>(position);
  const double phase = (position - static_cast<double>(whole)) * static_cast<double>(kKernelPhases);
  const auto row = static_cast<std::size_t>(phase);
  return {bank + row * kKernelTaps, static_cast<float>(phase - static_cast<double>(row)), whole - kKernelBefore};
}

}  // namespace

TANDEM_AVX2_TOO void interpolate(const float* bank, const float* left, const float* right,
                                 std::span<const double> positions, StereoFrame* out) noexcept {
  for (const double position : positions) {
    const Reading at = reading_at(bank, position);
    Lanes l{};
    Lanes r{};
    for (std::size_t i = 0; i < kKernelTaps; i += kLanes) {
      const Lanes lower = load(at.row + i);
      const Lanes taps = lower + at.part * (load(at.row + kKernelTaps + i) - lower);
      l += taps * load(left + at.first + i);
      r += taps * load(right + at.first + i);
    }
    *out++ = {sum(l), sum(r)};
  }
}

TANDEM_AVX2_TOO float dot_product(const float* a, const float* b, std::size_t count) noexcept {
  Lanes even{};
  Lanes odd{};
  std::size_t i = 0;
  for (; i + 2 * kLanes <= count; i += 2 * kLanes) {
    even += load(a + i) * load(b + i);
    odd += load(a + i + kLanes) * load(b + i + kLanes);
  }
  float total = sum(even + odd);
  for (; i < count; ++i) total += a[i] * b[i];
  return total;
}

}  // namespace tandem

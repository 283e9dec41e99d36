#include "engine/pitch/pitch_kernels.h"

#include <array>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace tandem {
namespace {

// Where one frame is taken from: two neighbouring rows, the part of the second one, and the first of the taps.
struct Reading {
  const float* row;
  float part;
  std::size_t first;
};

Reading reading_at(const float* bank, double position) noexcept {
  const auto whole = static_cast<std::size_t>(position);
  const double phase = (position - static_cast<double>(whole)) * static_cast<double>(kKernelPhases);
  const auto row = static_cast<std::size_t>(phase);
  return {bank + row * kKernelTaps, static_cast<float>(phase - static_cast<double>(row)), whole - kKernelBefore};
}

void interpolate_plain(const float* bank, const float* left, const float* right, std::span<const double> positions,
                       StereoFrame* out) noexcept {
  for (const double position : positions) {
    const Reading at = reading_at(bank, position);
    StereoFrame frame;
    for (std::size_t i = 0; i < kKernelTaps; ++i) {
      const float tap = at.row[i] + at.part * (at.row[kKernelTaps + i] - at.row[i]);
      frame.left += tap * left[at.first + i];
      frame.right += tap * right[at.first + i];
    }
    *out++ = frame;
  }
}

float dot_plain(const float* a, const float* b, std::size_t count) noexcept {
  float total = 0.0F;
  for (std::size_t i = 0; i < count; ++i) total += a[i] * b[i];
  return total;
}

#if defined(__x86_64__)

float sum(__m128 v) noexcept {
  const __m128 pairs = _mm_add_ps(v, _mm_movehl_ps(v, v));
  return _mm_cvtss_f32(_mm_add_ss(pairs, _mm_shuffle_ps(pairs, pairs, 1)));
}

void interpolate_sse(const float* bank, const float* left, const float* right, std::span<const double> positions,
                     StereoFrame* out) noexcept {
  for (const double position : positions) {
    const Reading at = reading_at(bank, position);
    const __m128 part = _mm_set1_ps(at.part);
    __m128 l = _mm_setzero_ps();
    __m128 r = _mm_setzero_ps();
    for (std::size_t i = 0; i < kKernelTaps; i += 4) {
      const __m128 a = _mm_loadu_ps(at.row + i);
      const __m128 b = _mm_loadu_ps(at.row + kKernelTaps + i);
      const __m128 tap = _mm_add_ps(a, _mm_mul_ps(part, _mm_sub_ps(b, a)));
      l = _mm_add_ps(l, _mm_mul_ps(tap, _mm_loadu_ps(left + at.first + i)));
      r = _mm_add_ps(r, _mm_mul_ps(tap, _mm_loadu_ps(right + at.first + i)));
    }
    *out++ = {sum(l), sum(r)};
  }
}

float dot_sse(const float* a, const float* b, std::size_t count) noexcept {
  __m128 total = _mm_setzero_ps();
  std::size_t i = 0;
  for (; i + 4 <= count; i += 4) total = _mm_add_ps(total, _mm_mul_ps(_mm_loadu_ps(a + i), _mm_loadu_ps(b + i)));
  float rest = sum(total);
  for (; i < count; ++i) rest += a[i] * b[i];
  return rest;
}

__attribute__((target("avx2,fma"))) float sum_wide(__m256 v) noexcept {
  return sum(_mm_add_ps(_mm256_castps256_ps128(v), _mm256_extractf128_ps(v, 1)));
}

__attribute__((target("avx2,fma"))) void interpolate_avx2(const float* bank, const float* left, const float* right,
                                                          std::span<const double> positions,
                                                          StereoFrame* out) noexcept {
  for (const double position : positions) {
    const Reading at = reading_at(bank, position);
    const __m256 part = _mm256_set1_ps(at.part);
    __m256 l = _mm256_setzero_ps();
    __m256 r = _mm256_setzero_ps();
    for (std::size_t i = 0; i < kKernelTaps; i += 8) {
      const __m256 a = _mm256_loadu_ps(at.row + i);
      const __m256 b = _mm256_loadu_ps(at.row + kKernelTaps + i);
      const __m256 tap = _mm256_fmadd_ps(part, _mm256_sub_ps(b, a), a);
      l = _mm256_fmadd_ps(tap, _mm256_loadu_ps(left + at.first + i), l);
      r = _mm256_fmadd_ps(tap, _mm256_loadu_ps(right + at.first + i), r);
    }
    *out++ = {sum_wide(l), sum_wide(r)};
  }
}

__attribute__((target("avx2,fma"))) float dot_avx2(const float* a, const float* b, std::size_t count) noexcept {
  __m256 even = _mm256_setzero_ps();
  __m256 odd = _mm256_setzero_ps();
  std::size_t i = 0;
  for (; i + 16 <= count; i += 16) {
    even = _mm256_fmadd_ps(_mm256_loadu_ps(a + i), _mm256_loadu_ps(b + i), even);
    odd = _mm256_fmadd_ps(_mm256_loadu_ps(a + i + 8), _mm256_loadu_ps(b + i + 8), odd);
  }
  float rest = sum_wide(_mm256_add_ps(even, odd));
  for (; i < count; ++i) rest += a[i] * b[i];
  return rest;
}

constexpr std::array<PitchKernels, 3> kAll{
    {{interpolate_avx2, dot_avx2}, {interpolate_sse, dot_sse}, {interpolate_plain, dot_plain}}};

std::size_t first_known() noexcept { return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma") ? 0 : 1; }

#else

constexpr std::array<PitchKernels, 1> kAll{{{interpolate_plain, dot_plain}}};

constexpr std::size_t first_known() noexcept { return 0; }

#endif

const PitchKernels chosen = kAll[first_known()];

}  // namespace

void interpolate(const float* bank, const float* left, const float* right, std::span<const double> positions,
                 StereoFrame* out) noexcept {
  chosen.read(bank, left, right, positions, out);
}

float dot_product(const float* a, const float* b, std::size_t count) noexcept { return chosen.multiply(a, b, count); }

std::span<const PitchKernels> pitch_kernels() noexcept { return std::span(kAll).subspan(first_known()); }

}  // namespace tandem

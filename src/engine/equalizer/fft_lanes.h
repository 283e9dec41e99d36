// Eight numbers at a time: the arithmetic from which the equalizer's transforms are built. Written with the compiler's
// vector types, so that one source becomes SSE, AVX or AVX-512 code according to the function it is inlined into.
// Private to fft_kernels.cpp. Any thread, no state.
#pragma once

#include <cstddef>

// No vector is ever passed through a call here (everything is inlined), so the calling convention cannot matter.
#pragma GCC diagnostic ignored "-Wpsabi"

#define TANDEM_INLINE [[gnu::always_inline]] inline

namespace tandem::lanes {

inline constexpr std::size_t kLanes = 8;

template <std::size_t Count>
struct VectorOf {
  using Type [[gnu::vector_size(Count * sizeof(float))]] = float;
};
using Lanes = VectorOf<kLanes>::Type;

template <class Vector>
struct Complex {
  Vector re;
  Vector im;
};
using ComplexLanes = Complex<Lanes>;

template <class Vector = Lanes>
TANDEM_INLINE Vector load(const float* from) {
  Vector value;
  __builtin_memcpy(&value, from, sizeof value);
  return value;
}

template <class Vector>
TANDEM_INLINE void store(float* to, const Vector& value) {
  __builtin_memcpy(to, &value, sizeof value);
}

TANDEM_INLINE ComplexLanes operator+(const ComplexLanes& a, const ComplexLanes& b) {
  return {a.re + b.re, a.im + b.im};
}
TANDEM_INLINE ComplexLanes operator-(const ComplexLanes& a, const ComplexLanes& b) {
  return {a.re - b.re, a.im - b.im};
}
TANDEM_INLINE ComplexLanes operator*(const ComplexLanes& a, const ComplexLanes& b) {
  return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}

template <class Vector>
TANDEM_INLINE void multiply_add(Complex<Vector>& sum, const Complex<Vector>& a, const Complex<Vector>& b) {
  sum.re += a.re * b.re;
  sum.im += a.re * b.im;
  sum.re -= a.im * b.im;
  sum.im += a.im * b.re;
}

TANDEM_INLINE ComplexLanes times_minus_i(const ComplexLanes& a) { return {a.im, -a.re}; }

// The discrete Fourier transform of four numbers, in natural order.
TANDEM_INLINE void transform4(ComplexLanes& a, ComplexLanes& b, ComplexLanes& c, ComplexLanes& d) {
  const ComplexLanes even_sum = a + c;
  const ComplexLanes even_difference = a - c;
  const ComplexLanes odd_sum = b + d;
  const ComplexLanes odd_difference = times_minus_i(b - d);
  a = even_sum + odd_sum;
  b = even_difference + odd_difference;
  c = even_sum - odd_sum;
  d = even_difference - odd_difference;
}

// The discrete Fourier transform of eight numbers, in natural order, in each lane.
TANDEM_INLINE void transform8(ComplexLanes (&x)[8]) {
  constexpr float kHalfRoot = 0.70710678118654752440F;
  ComplexLanes s0 = x[0] + x[4];
  ComplexLanes s1 = x[1] + x[5];
  ComplexLanes s2 = x[2] + x[6];
  ComplexLanes s3 = x[3] + x[7];
  ComplexLanes d0 = x[0] - x[4];
  const ComplexLanes d1 = x[1] - x[5];
  ComplexLanes d2 = times_minus_i(x[2] - x[6]);
  const ComplexLanes d3 = x[3] - x[7];
  ComplexLanes t1{(d1.re + d1.im) * kHalfRoot, (d1.im - d1.re) * kHalfRoot};
  ComplexLanes t3{(d3.im - d3.re) * kHalfRoot, (d3.re + d3.im) * -kHalfRoot};
  transform4(s0, s1, s2, s3);
  transform4(d0, t1, d2, t3);
  x[0] = s0, x[2] = s1, x[4] = s2, x[6] = s3;
  x[1] = d0, x[3] = t1, x[5] = d2, x[7] = t3;
}

// Exchanges row and lane of eight rows of eight.
TANDEM_INLINE void transpose(Lanes (&r)[8]) {
  Lanes p[8];
  for (std::size_t i = 0; i < 8; i += 2) {
    p[i] = __builtin_shufflevector(r[i], r[i + 1], 0, 8, 2, 10, 4, 12, 6, 14);
    p[i + 1] = __builtin_shufflevector(r[i], r[i + 1], 1, 9, 3, 11, 5, 13, 7, 15);
  }
  Lanes q[8];
  for (std::size_t i = 0; i < 8; i += 4) {
    for (std::size_t j = 0; j < 2; ++j) {
      q[i + j] = __builtin_shufflevector(p[i + j], p[i + j + 2], 0, 1, 8, 9, 4, 5, 12, 13);
      q[i + j + 2] = __builtin_shufflevector(p[i + j], p[i + j + 2], 2, 3, 10, 11, 6, 7, 14, 15);
    }
  }
  for (std::size_t i = 0; i < 4; ++i) {
    r[i] = __builtin_shufflevector(q[i], q[i + 4], 0, 1, 2, 3, 8, 9, 10, 11);
    r[i + 4] = __builtin_shufflevector(q[i], q[i + 4], 4, 5, 6, 7, 12, 13, 14, 15);
  }
}

}  // namespace tandem::lanes

#include "engine/fft_block.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "engine/fft_lanes.h"

namespace tandem {

namespace {

using namespace lanes;  // operators

constexpr std::size_t kOuter = 64;  // stride of the outer pass: 8 columns of 64
constexpr std::size_t kInner = 8;   // stride of the inner pass: within 64, 8 columns of 8

// exp(-2 pi i row column / (8 columns)), rows 1 .. 7.
template <std::size_t Columns>
struct Twiddles {
  alignas(64) std::array<float, 8 * Columns> re{};
  alignas(64) std::array<float, 8 * Columns> im{};

  Twiddles() {
    for (std::size_t row = 0; row < 8; ++row) {
      for (std::size_t column = 0; column < Columns; ++column) {
        const double angle =
            2.0 * std::numbers::pi * static_cast<double>(row * column) / static_cast<double>(8 * Columns);
        re[row * Columns + column] = static_cast<float>(std::cos(angle));
        im[row * Columns + column] = static_cast<float>(-std::sin(angle));
      }
    }
  }
  TANDEM_INLINE ComplexLanes at(std::size_t row, std::size_t column) const {
    return {load(&re[row * Columns + column]), load(&im[row * Columns + column])};
  }
};

const Twiddles<kOuter> outer_twiddles;
const Twiddles<kInner> inner_twiddles;

template <std::size_t Stride>
TANDEM_INLINE void gather(ComplexLanes (&x)[8], const float* re, const float* im) {
  for (std::size_t row = 0; row < 8; ++row) x[row] = {load(re + row * Stride), load(im + row * Stride)};
}

template <std::size_t Stride>
TANDEM_INLINE void scatter(const ComplexLanes (&x)[8], float* re, float* im) {
  for (std::size_t row = 0; row < 8; ++row) {
    store(re + row * Stride, x[row].re);
    store(im + row * Stride, x[row].im);
  }
}

template <std::size_t Columns>
TANDEM_INLINE void twiddle(ComplexLanes (&x)[8], const Twiddles<Columns>& factors, std::size_t column) {
  for (std::size_t row = 1; row < 8; ++row) x[row] = x[row] * factors.at(row, column);
}

TANDEM_INLINE void transpose_complex(ComplexLanes (&x)[8]) {
  Lanes re[8] = {x[0].re, x[1].re, x[2].re, x[3].re, x[4].re, x[5].re, x[6].re, x[7].re};
  Lanes im[8] = {x[0].im, x[1].im, x[2].im, x[3].im, x[4].im, x[5].im, x[6].im, x[7].im};
  transpose(re);
  transpose(im);
  for (std::size_t row = 0; row < 8; ++row) x[row] = {re[row], im[row]};
}

TANDEM_INLINE void forward(float* re, float* im) {
  ComplexLanes x[8];
  for (std::size_t column = 0; column < kOuter; column += kLanes) {
    gather<kOuter>(x, re + column, im + column);
    transform8(x);
    twiddle(x, outer_twiddles, column);
    scatter<kOuter>(x, re + column, im + column);
  }
  for (std::size_t base = 0; base < kTransform; base += kOuter) {
    gather<kInner>(x, re + base, im + base);
    transform8(x);
    twiddle(x, inner_twiddles, 0);
    transpose_complex(x);
    transform8(x);
    scatter<kInner>(x, re + base, im + base);
  }
}

// The inverse is the forward transform with real and imaginary parts exchanged on both sides.
TANDEM_INLINE void back(const float* re, const float* im, float* later_re, float* later_im) {
  Spectrum work;
  ComplexLanes x[8];
  for (std::size_t base = 0; base < kTransform; base += kOuter) {
    gather<kInner>(x, im + base, re + base);
    transform8(x);
    transpose_complex(x);
    twiddle(x, inner_twiddles, 0);
    transform8(x);
    scatter<kInner>(x, work.re.data() + base, work.im.data() + base);
  }
  for (std::size_t column = 0; column < kOuter; column += kLanes) {
    gather<kOuter>(x, work.re.data() + column, work.im.data() + column);
    twiddle(x, outer_twiddles, column);
    transform8(x);
    for (std::size_t row = 4; row < 8; ++row) {
      store(later_re + (row - 4) * kOuter + column, x[row].im);
      store(later_im + (row - 4) * kOuter + column, x[row].re);
    }
  }
}

constexpr std::size_t kRe = 0;
constexpr std::size_t kIm = SpectrumTable::kGroup;

TANDEM_INLINE void multiply_add(Lanes& re, Lanes& im, const ComplexLanes& a, const ComplexLanes& b) {
  re += a.re * b.re;
  im += a.re * b.im;
  re -= a.im * b.im;
  im += a.im * b.re;
}

TANDEM_INLINE ComplexLanes entry(const float* group, std::size_t slot, std::size_t lane) {
  const float* const at = group + slot * SpectrumTable::kEntry + lane;
  return {load(at + kRe), load(at + kIm)};
}

TANDEM_INLINE void pair(const SpectrumTable& x, std::size_t newest, const SpectrumTable& h, Spectrum& now,
                        Spectrum& next) {
  for (std::size_t g = 0; g < SpectrumTable::kGroups; ++g) {
    const float* const xs = x.group(g);
    const float* const hs = h.group(g);
    ComplexLanes a0{};
    ComplexLanes a1{};
    ComplexLanes b0{};
    ComplexLanes b1{};
    for (std::size_t p = 0; p < kPartitions; ++p) {
      const std::size_t slot = (newest - p) % kPartitions;
      const ComplexLanes x0 = entry(xs, slot, 0);
      const ComplexLanes x1 = entry(xs, slot, kLanes);
      multiply_add(a0.re, a0.im, x0, entry(hs, p, 0));
      multiply_add(a1.re, a1.im, x1, entry(hs, p, kLanes));
      // The entry behind the last partition is zero.
      multiply_add(b0.re, b0.im, x0, entry(hs, p + 1, 0));
      multiply_add(b1.re, b1.im, x1, entry(hs, p + 1, kLanes));
    }
    const std::size_t at = g * SpectrumTable::kGroup;
    store(&now.re[at], a0.re), store(&now.im[at], a0.im);
    store(&now.re[at + kLanes], a1.re), store(&now.im[at + kLanes], a1.im);
    store(&next.re[at], b0.re), store(&next.im[at], b0.im);
    store(&next.re[at + kLanes], b1.re), store(&next.im[at + kLanes], b1.im);
  }
}

TANDEM_INLINE void single(const SpectrumTable& x, std::size_t newest, const SpectrumTable& h, Spectrum& sum) {
  const std::size_t slot = newest % kPartitions;
  for (std::size_t at = 0; at < kTransform; at += kLanes) {
    const std::size_t g = at / SpectrumTable::kGroup;
    const std::size_t lane = at % SpectrumTable::kGroup;
    ComplexLanes value{load(&sum.re[at]), load(&sum.im[at])};
    multiply_add(value.re, value.im, entry(x.group(g), slot, lane), entry(h.group(g), 0, lane));
    store(&sum.re[at], value.re);
    store(&sum.im[at], value.im);
  }
}

struct Kernels {
  void (*forward)(float*, float*);
  void (*back)(const float*, const float*, float*, float*);
  void (*pair)(const SpectrumTable&, std::size_t, const SpectrumTable&, Spectrum&, Spectrum&);
  void (*single)(const SpectrumTable&, std::size_t, const SpectrumTable&, Spectrum&);
};

// The same code once for each kind of processor, chosen by hand rather than by the loader: the loader's choice runs
// before a sanitizer's runtime is ready.
#define TANDEM_KERNELS(name, attribute)                                                                               \
  struct name {                                                                                                       \
    attribute static void run_forward(float* re, float* im) { forward(re, im); }                                      \
    attribute static void run_back(const float* re, const float* im, float* l, float* r) { back(re, im, l, r); }      \
    attribute static void run_pair(const SpectrumTable& x, std::size_t newest, const SpectrumTable& h, Spectrum& now, \
                                   Spectrum& next) {                                                                  \
      pair(x, newest, h, now, next);                                                                                  \
    }                                                                                                                 \
    attribute static void run_single(const SpectrumTable& x, std::size_t newest, const SpectrumTable& h,              \
                                     Spectrum& sum) {                                                                 \
      single(x, newest, h, sum);                                                                                      \
    }                                                                                                                 \
    static constexpr Kernels kAll{run_forward, run_back, run_pair, run_single};                                       \
  };

TANDEM_KERNELS(Plain, )
#if defined(__x86_64__)
TANDEM_KERNELS(Avx2, [[gnu::target("avx2,fma")]])
TANDEM_KERNELS(Avx512, [[gnu::target("avx2,fma,avx512f,avx512vl,avx512dq")]])
#endif

Kernels choose() {
#if defined(__x86_64__)
  __builtin_cpu_init();
  if (__builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512dq")) return Avx512::kAll;
  if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma")) return Avx2::kAll;
#endif
  return Plain::kAll;
}

const Kernels kernels = choose();

}  // namespace

void SpectrumTable::put(std::size_t slot, const Spectrum& spectrum) noexcept {
  for (std::size_t g = 0; g < kGroups; ++g) {
    float* const at = values_.data() + g * kGroupStride + slot * kEntry;
    std::copy_n(&spectrum.re[g * kGroup], kGroup, at + kRe);
    std::copy_n(&spectrum.im[g * kGroup], kGroup, at + kIm);
  }
}

void transform_forward(Spectrum& points) noexcept { kernels.forward(points.re.data(), points.im.data()); }

void transform_back(const Spectrum& spectrum, Block& later_half) noexcept {
  kernels.back(spectrum.re.data(), spectrum.im.data(), later_half.left.data(), later_half.right.data());
}

void convolve_pair(const SpectrumTable& x, std::size_t newest, const SpectrumTable& h, Spectrum& now,
                   Spectrum& next) noexcept {
  kernels.pair(x, newest, h, now, next);
}

void convolve_newest(const SpectrumTable& x, std::size_t newest, const SpectrumTable& h, Spectrum& sum) noexcept {
  kernels.single(x, newest, h, sum);
}

}  // namespace tandem

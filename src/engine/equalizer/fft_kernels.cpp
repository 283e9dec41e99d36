#include "engine/equalizer/fft_kernels.h"

#include <cmath>
#include <numbers>

#include "engine/equalizer/fft_lanes.h"

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

// Rows 0 .. 3 of a column lie in the earlier block, 4 .. 7 in the later one.
TANDEM_INLINE void gather_blocks(ComplexLanes (&x)[8], const Block& earlier, const Block& later, std::size_t column) {
  for (std::size_t row = 0; row < 4; ++row) {
    const std::size_t at = row * kOuter + column;
    x[row] = {load(&earlier.left[at]), load(&earlier.right[at])};
    x[row + 4] = {load(&later.left[at]), load(&later.right[at])};
  }
}

TANDEM_INLINE void scatter_table(const ComplexLanes (&x)[8], SpectrumTable& table, std::size_t slot, std::size_t bin) {
  for (std::size_t row = 0; row < 8; ++row) {
    float* const to = table.at(bin + row * kInner) + slot * SpectrumTable::kEntry;
    store(to, x[row].re);
    store(to + SpectrumTable::kGroup, x[row].im);
  }
}

TANDEM_INLINE void forward(const Block& earlier, const Block& later, SpectrumTable& table, std::size_t slot) {
  Spectrum work;
  ComplexLanes x[8];
  for (std::size_t column = 0; column < kOuter; column += kLanes) {
    gather_blocks(x, earlier, later, column);
    transform8(x);
    twiddle(x, outer_twiddles, column);
    scatter<kOuter>(x, &work.re[column], &work.im[column]);
  }
  for (std::size_t base = 0; base < kTransform; base += kOuter) {
    gather<kInner>(x, &work.re[base], &work.im[base]);
    transform8(x);
    twiddle(x, inner_twiddles, 0);
    transpose_complex(x);
    transform8(x);
    scatter_table(x, table, slot, base);
  }
}

// The inverse is the forward transform with real and imaginary parts exchanged on both sides.
TANDEM_INLINE void back(const Spectrum& spectrum, Block& later_half) {
  Spectrum work;
  ComplexLanes x[8];
  for (std::size_t base = 0; base < kTransform; base += kOuter) {
    gather<kInner>(x, &spectrum.im[base], &spectrum.re[base]);
    transform8(x);
    transpose_complex(x);
    twiddle(x, inner_twiddles, 0);
    transform8(x);
    scatter<kInner>(x, &work.re[base], &work.im[base]);
  }
  for (std::size_t column = 0; column < kOuter; column += kLanes) {
    gather<kOuter>(x, &work.re[column], &work.im[column]);
    twiddle(x, outer_twiddles, column);
    transform8(x);
    for (std::size_t row = 0; row < 4; ++row) {
      store(&later_half.left[row * kOuter + column], x[row + 4].im);
      store(&later_half.right[row * kOuter + column], x[row + 4].re);
    }
  }
}

template <class Vector>
TANDEM_INLINE Complex<Vector> entry(const float* bins, std::size_t index) {
  const float* const place = bins + index * SpectrumTable::kEntry;
  return {load<Vector>(place), load<Vector>(place + SpectrumTable::kGroup)};
}

template <class Vector>
TANDEM_INLINE void put(Spectrum& spectrum, std::size_t at, const Complex<Vector>& value) {
  store(&spectrum.re[at], value.re);
  store(&spectrum.im[at], value.im);
}

// One vector of bins. The four sums under way hide the time that one multiplication takes.
template <class Vector>
TANDEM_INLINE void ahead_of_bins(const float* xs, std::size_t newest, const float* hs,
                                 Complex<Vector> (&sums)[kAhead]) {
  for (std::size_t p = 0; p < kPartitions; ++p) {
    const auto x = entry<Vector>(xs, (newest - p) % kPartitions);
    for (std::size_t block = 0; block < kAhead; ++block) multiply_add(sums[block], x, entry<Vector>(hs, p + block));
  }
}

template <class Vector>
TANDEM_INLINE void ahead(const SpectrumTable& x, std::size_t newest, const SpectrumTable& h, SpectraAhead& sums) {
  constexpr std::size_t kStep = sizeof(Vector) / sizeof(float);
  static_assert(SpectrumTable::kGroup % kStep == 0);
  for (std::size_t bin = 0; bin < kTransform; bin += kStep) {
    Complex<Vector> values[kAhead]{};
    ahead_of_bins<Vector>(x.at(bin), newest, h.at(bin), values);
    for (std::size_t block = 0; block < kAhead; ++block) put(sums[block], bin, values[block]);
  }
}

TANDEM_INLINE void rest(const SpectrumTable& x, std::size_t newest, const SpectrumTable& h, std::size_t count,
                        Spectrum& sum) {
  for (std::size_t bin = 0; bin < kTransform; bin += kLanes) {
    ComplexLanes value{load(&sum.re[bin]), load(&sum.im[bin])};
    for (std::size_t p = 0; p < count; ++p) {
      multiply_add(value, entry<Lanes>(x.at(bin), (newest - p) % kPartitions), entry<Lanes>(h.at(bin), p));
    }
    put(sum, bin, value);
  }
}

// The same code compiled once per instruction set. Selected here at run time rather than by the loader (IFUNC), whose
// resolvers run before a sanitizer's runtime is ready.
// NOLINTBEGIN(bugprone-macro-parentheses): an attribute and a struct's name take none
#define TANDEM_KERNELS(name, width, attribute)                                                                  \
  struct name {                                                                                                 \
    attribute static void run_forward(const Block& earlier, const Block& later, SpectrumTable& table,           \
                                      std::size_t slot) {                                                       \
      forward(earlier, later, table, slot);                                                                     \
    }                                                                                                           \
    attribute static void run_back(const Spectrum& spectrum, Block& later_half) { back(spectrum, later_half); } \
    attribute static void run_ahead(const SpectrumTable& x, std::size_t newest, const SpectrumTable& h,         \
                                    SpectraAhead& sums) {                                                       \
      ahead<VectorOf<width>::Type>(x, newest, h, sums);                                                         \
    }                                                                                                           \
    attribute static void run_rest(const SpectrumTable& x, std::size_t newest, const SpectrumTable& h,          \
                                   std::size_t count, Spectrum& sum) {                                          \
      rest(x, newest, h, count, sum);                                                                           \
    }                                                                                                           \
    static constexpr Kernels kAll{#name, run_forward, run_back, run_ahead, run_rest};                           \
  };

// NOLINTEND(bugprone-macro-parentheses)

TANDEM_KERNELS(Plain, 4, )
#if defined(__x86_64__)
TANDEM_KERNELS(Avx2, 8, [[gnu::target("avx2,fma")]])
TANDEM_KERNELS(Avx512, 16, [[gnu::target("avx2,fma,avx512f,avx512vl,avx512dq")]])
#endif

}  // namespace

std::vector<Kernels> usable_kernels() {
  std::vector<Kernels> usable{Plain::kAll};
#if defined(__x86_64__)
  __builtin_cpu_init();
  const bool avx2 = __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("fma") != 0;
  const bool avx512 = __builtin_cpu_supports("avx512vl") != 0 && __builtin_cpu_supports("avx512dq") != 0;
  if (avx2) usable.push_back(Avx2::kAll);
  if (avx2 && avx512) usable.push_back(Avx512::kAll);
#endif
  return usable;
}

}  // namespace tandem

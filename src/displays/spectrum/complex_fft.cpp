#include "displays/spectrum/complex_fft.h"

#include <cmath>
#include <cstring>
#include <numbers>
#include <utility>

namespace tandem {

namespace {

constexpr std::size_t kLanes = 4;
using Lanes [[gnu::vector_size(kLanes * sizeof(float))]] = float;

struct Complex {
  Lanes re;
  Lanes im;
};

Complex operator+(const Complex& a, const Complex& b) { return {a.re + b.re, a.im + b.im}; }
Complex operator-(const Complex& a, const Complex& b) { return {a.re - b.re, a.im - b.im}; }
Complex operator*(const Complex& a, const Complex& b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }
Complex times_minus_i(const Complex& a) { return {a.im, -a.re}; }

Lanes load(const float* from) {
  Lanes lanes;
  std::memcpy(&lanes, from, sizeof lanes);
  return lanes;
}

void store(float* to, const Lanes& lanes) { std::memcpy(to, &lanes, sizeof lanes); }

template <class Numbers>
Complex load(const Numbers& from, std::size_t at) {
  return {load(&from.re[at]), load(&from.im[at])};
}

template <class Numbers>
void store(Numbers& to, std::size_t at, const Complex& numbers) {
  store(&to.re[at], numbers.re);
  store(&to.im[at], numbers.im);
}

// The same number in all lanes.
template <class Numbers>
Complex spread(const Numbers& from, std::size_t at) {
  return {Lanes{} + from.re[at], Lanes{} + from.im[at]};
}

// In each lane the transform of the four numbers, in natural order.
void transform4(Complex (&x)[4]) {
  const Complex even_sum = x[0] + x[2];
  const Complex even_difference = x[0] - x[2];
  const Complex odd_sum = x[1] + x[3];
  const Complex odd_difference = times_minus_i(x[1] - x[3]);
  x[0] = even_sum + odd_sum;
  x[1] = even_difference + odd_difference;
  x[2] = even_sum - odd_sum;
  x[3] = even_difference - odd_difference;
}

// Row i of the result holds lane i of all four.
void store_transposed(float* to, const Lanes& a, const Lanes& b, const Lanes& c, const Lanes& d) {
  const Lanes ab_low = __builtin_shufflevector(a, b, 0, 4, 1, 5);
  const Lanes ab_high = __builtin_shufflevector(a, b, 2, 6, 3, 7);
  const Lanes cd_low = __builtin_shufflevector(c, d, 0, 4, 1, 5);
  const Lanes cd_high = __builtin_shufflevector(c, d, 2, 6, 3, 7);
  store(to, __builtin_shufflevector(ab_low, cd_low, 0, 1, 4, 5));
  store(to + kLanes, __builtin_shufflevector(ab_low, cd_low, 2, 3, 6, 7));
  store(to + 2 * kLanes, __builtin_shufflevector(ab_high, cd_high, 0, 1, 4, 5));
  store(to + 3 * kLanes, __builtin_shufflevector(ab_high, cd_high, 2, 3, 6, 7));
}

}  // namespace

void ComplexFft::prepare(std::size_t length) {
  signal_.resize(length);
  other_.resize(length);
  for (std::size_t power = 1; power <= 3; ++power) {
    Numbers& twiddles = twiddles_[power - 1];
    twiddles.resize(length / 4);
    for (std::size_t k = 0; k < length / 4; ++k) {
      const double angle = 2.0 * std::numbers::pi * static_cast<double>(power * k) / static_cast<double>(length);
      twiddles.re[k] = static_cast<float>(std::cos(angle));
      twiddles.im[k] = static_cast<float>(-std::sin(angle));
    }
  }
}

void ComplexFft::transform() noexcept {
  first_pass();
  std::size_t stride = kLanes;
  for (; stride < length() / 2; stride *= 4) pass(stride);
  if (stride < length()) halves_pass();
}

// Neighbours have twiddles of their own, and their results lie side by side.
void ComplexFft::first_pass() noexcept {
  const std::size_t quarter = length() / 4;
  for (std::size_t k = 0; k < quarter; k += kLanes) {
    Complex x[4];
    for (std::size_t i = 0; i < 4; ++i) x[i] = load(signal_, k + i * quarter);
    transform4(x);
    for (std::size_t i = 1; i < 4; ++i) x[i] = x[i] * load(twiddles_[i - 1], k);
    store_transposed(&other_.re[4 * k], x[0].re, x[1].re, x[2].re, x[3].re);
    store_transposed(&other_.im[4 * k], x[0].im, x[1].im, x[2].im, x[3].im);
  }
  std::swap(signal_, other_);
}

// `stride` neighbours share their twiddles.
void ComplexFft::pass(std::size_t stride) noexcept {
  const std::size_t quarter = length() / 4;
  for (std::size_t k = 0; k < quarter; k += stride) {
    const Complex twiddles[3] = {spread(twiddles_[0], k), spread(twiddles_[1], k), spread(twiddles_[2], k)};
    for (std::size_t lane = 0; lane < stride; lane += kLanes) {
      Complex x[4];
      for (std::size_t i = 0; i < 4; ++i) x[i] = load(signal_, k + lane + i * quarter);
      transform4(x);
      store(other_, 4 * k + lane, x[0]);
      for (std::size_t i = 1; i < 4; ++i) store(other_, 4 * k + i * stride + lane, x[i] * twiddles[i - 1]);
    }
  }
  std::swap(signal_, other_);
}

// What is left of a length that is no power of four.
void ComplexFft::halves_pass() noexcept {
  const std::size_t half = length() / 2;
  for (std::size_t lane = 0; lane < half; lane += kLanes) {
    const Complex a = load(signal_, lane);
    const Complex b = load(signal_, lane + half);
    store(other_, lane, a + b);
    store(other_, lane + half, a - b);
  }
  std::swap(signal_, other_);
}

}  // namespace tandem

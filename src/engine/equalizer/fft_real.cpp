#include "engine/equalizer/fft_real.h"

#include <numbers>
#include <utility>

namespace tandem {

namespace {

using Complex = std::complex<double>;

// The plain product: std::complex's own operator checks for infinities.
Complex product(const Complex& a, const Complex& b) {
  return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

void reverse_bits(std::vector<Complex>& points) {
  const std::size_t size = points.size();
  for (std::size_t i = 1, j = 0; i < size; ++i) {
    std::size_t bit = size >> 1;
    for (; (j & bit) != 0; bit >>= 1) j ^= bit;
    j ^= bit;
    if (i < j) std::swap(points[i], points[j]);
  }
}

}  // namespace

RealFft::RealFft(std::size_t points) : points_(points), roots_(points / 2) {
  const double turn = -2.0 * std::numbers::pi / static_cast<double>(points);
  for (std::size_t k = 0; k < roots_.size(); ++k) roots_[k] = std::polar(1.0, turn * static_cast<double>(k));
}

void RealFft::transform(std::vector<Complex>& points) const {
  reverse_bits(points);
  for (std::size_t half = 1; half < points.size(); half *= 2) {
    const std::size_t stride = roots_.size() / half;
    for (std::size_t base = 0; base < points.size(); base += 2 * half) {
      for (std::size_t i = 0; i < half; ++i) {
        const Complex turned = product(points[base + half + i], roots_[i * stride]);
        points[base + half + i] = points[base + i] - turned;
        points[base + i] += turned;
      }
    }
  }
}

std::vector<Complex> RealFft::forward(const std::vector<double>& time) const {
  const std::size_t half = points_ / 2;
  std::vector<Complex> packed(half);
  for (std::size_t n = 0; n < half; ++n) packed[n] = {time[2 * n], time[2 * n + 1]};
  transform(packed);
  std::vector<Complex> spectrum(half + 1);
  for (std::size_t k = 0; k <= half; ++k) {
    const Complex a = packed[k % half];
    const Complex b = std::conj(packed[(half - k) % half]);
    const Complex even = 0.5 * (a + b);
    const Complex odd = product({0.0, -0.5}, a - b);
    spectrum[k] = even + product(k < half ? roots_[k] : Complex{-1.0, 0.0}, odd);
  }
  return spectrum;
}

std::vector<double> RealFft::back(const std::vector<Complex>& spectrum) const {
  const std::size_t half = points_ / 2;
  std::vector<Complex> packed(half);
  for (std::size_t k = 0; k < half; ++k) {
    const Complex a = spectrum[k];
    const Complex b = std::conj(spectrum[half - k]);
    const Complex even = 0.5 * (a + b);
    const Complex odd = product(std::conj(roots_[k]), 0.5 * (a - b));
    packed[k] = std::conj(even + product({0.0, 1.0}, odd));
  }
  transform(packed);
  std::vector<double> time(points_);
  const double scale = 1.0 / static_cast<double>(half);
  for (std::size_t n = 0; n < half; ++n) {
    time[2 * n] = packed[n].real() * scale;
    time[2 * n + 1] = -packed[n].imag() * scale;
  }
  return time;
}

}  // namespace tandem

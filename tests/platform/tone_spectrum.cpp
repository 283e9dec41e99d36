#include "platform/tone_spectrum.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <numeric>
#include <stdexcept>
#include <vector>

#include "engine/core/window_shapes.h"

namespace tandem::test {

namespace {

using Complex = std::complex<double>;

constexpr std::size_t kPoints = 1U << 16U;
constexpr double kBeta = 24;
constexpr double kMainLobe = 12;  // bins to either side

double decibels(double amplitude) { return 20 * std::log10(std::max(amplitude, 1e-12)); }

std::vector<double> kaiser_points() {
  std::vector<double> points(kPoints);
  for (std::size_t n = 0; n < kPoints; ++n)
    points[n] = kaiser_window(2.0 * static_cast<double>(n) / kPoints - 1, kBeta);
  return points;
}

const std::vector<double>& window() {
  static const std::vector<double> points = kaiser_points();
  return points;
}

// In place; the textbook's radix 2.
void transform(std::vector<Complex>& values) {
  for (std::size_t i = 1, j = 0; i < kPoints; ++i) {
    std::size_t bit = kPoints >> 1U;
    for (; (j & bit) != 0; bit >>= 1U) j ^= bit;
    j ^= bit;
    if (i < j) std::swap(values[i], values[j]);
  }
  for (std::size_t length = 2; length <= kPoints; length *= 2)
    for (std::size_t k = 0; k < length / 2; ++k) {
      const Complex turn =
          std::polar(1.0, -2 * std::numbers::pi * static_cast<double>(k) / static_cast<double>(length));
      for (std::size_t i = k; i < kPoints; i += length) {
        const Complex other = values[i + length / 2] * turn;
        values[i + length / 2] = values[i] - other;
        values[i] += other;
      }
    }
}

// The amplitude of exactly that frequency, which lies between two bins.
double amplitude_of(std::span<const StereoFrame> sound, double cycles, double sum_of_window) {
  Complex sum = 0;
  for (std::size_t n = 0; n < kPoints; ++n)
    sum +=
        window()[n] * double{sound[n].left} * std::polar(1.0, -2 * std::numbers::pi * cycles * static_cast<double>(n));
  return 2 * std::abs(sum) / sum_of_window;
}

}  // namespace

ToneSpectrum::ToneSpectrum(std::span<const StereoFrame> sound, double rate, double hz) {
  if (sound.size() < kPoints) throw std::invalid_argument("the sound is too short for its spectrum");
  const auto middle = sound.subspan((sound.size() - kPoints) / 2, kPoints);
  std::vector<Complex> values(kPoints);
  for (std::size_t n = 0; n < kPoints; ++n) values[n] = window()[n] * double{middle[n].left};
  const double sum_of_window = std::accumulate(window().begin(), window().end(), 0.0);
  level_ = decibels(amplitude_of(middle, hz / rate, sum_of_window));
  transform(values);
  const double tone = hz / rate * kPoints;
  double worst = 0;
  for (auto bin = static_cast<std::size_t>(20 / rate * kPoints) + 1; bin < kPoints / 2; ++bin) {
    const double amplitude = 2 * std::abs(values[bin]) / sum_of_window;
    if (std::abs(static_cast<double>(bin) - tone) <= kMainLobe || amplitude <= worst) continue;
    worst = amplitude;
    worst_hz_ = static_cast<double>(bin) * rate / kPoints;
  }
  worst_ = decibels(worst);
}

}  // namespace tandem::test

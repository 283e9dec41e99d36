#include "displays/spectrum/fft_window.h"

#include <cmath>
#include <cstddef>
#include <numbers>

namespace tandem {

namespace {

double parzen(double x) noexcept {
  const double far = 1.0 - x;
  return x <= 0.5 ? 1.0 - 6.0 * x * x * far : 2.0 * far * far * far;
}

double bell(double x) noexcept {
  const double deviations = x / 0.4;
  return std::exp(-0.5 * deviations * deviations);
}

}  // namespace

double window_shape(FftWindow window, double x) noexcept {
  const double angle = std::numbers::pi * x;
  switch (window) {
    case FftWindow::Rectang:
      return 1.0;
    case FftWindow::Hamming:
      return 0.54 + 0.46 * std::cos(angle);
    case FftWindow::Hanning:
      return 0.5 + 0.5 * std::cos(angle);
    case FftWindow::Blackman:
      return 0.42 + 0.5 * std::cos(angle) + 0.08 * std::cos(2.0 * angle);
    case FftWindow::Gaussiano:
      return bell(x);
    case FftWindow::Welch:
      return 1.0 - x * x;
    case FftWindow::Parzen:
      return parzen(std::abs(x));
  }
  return 1.0;
}

void fill_window(FftWindow window, std::span<float> points) noexcept {
  const double half = static_cast<double>(points.size()) / 2.0;
  for (std::size_t i = 0; i < points.size(); ++i)
    points[i] = static_cast<float>(window_shape(window, (static_cast<double>(i) - half) / half));
}

}  // namespace tandem

#include "displays/spectrum/halving_filter.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tandem {

namespace {

constexpr double kKaiser = 4.55;  // 50 dB

double bessel_i0(double x) noexcept {
  double term = 1.0;
  double sum = 1.0;
  for (int k = 1; k < 20; ++k) {
    term *= x / (2.0 * k) * x / (2.0 * k);
    sum += term;
  }
  return sum;
}

double kaiser(double x) noexcept { return bessel_i0(kKaiser * std::sqrt(1.0 - x * x)) / bessel_i0(kKaiser); }

}  // namespace

HalvingFilter::HalvingFilter(std::size_t pairs, std::size_t largest_in) : taps_(pairs), line_(older() + largest_in) {
  double sum = 0.0;
  for (std::size_t i = 0; i < pairs; ++i) {
    const double at = static_cast<double>(2 * i + 1);
    const double sine = i % 2 == 0 ? 1.0 : -1.0;
    taps_[i] = static_cast<float>(sine / (std::numbers::pi * at) * kaiser(at / static_cast<double>(2 * pairs)));
    sum += 2.0 * static_cast<double>(taps_[i]);
  }
  for (float& tap : taps_) tap *= static_cast<float>(0.5 / sum);  // 1 at 0 Hz
}

void HalvingFilter::clear() noexcept { std::fill(line_.begin(), line_.end(), SoundFrame{}); }

void HalvingFilter::halve(std::span<const SoundFrame> in, std::span<SoundFrame> out) noexcept {
  std::copy(in.begin(), in.end(), line_.begin() + static_cast<std::ptrdiff_t>(older()));
  const SoundFrame* middle = line_.data() + older() / 2;
  for (SoundFrame& frame : out) {
    frame = {0.5F * middle->left, 0.5F * middle->right};
    for (std::size_t i = 0; i < taps_.size(); ++i) {
      const SoundFrame& before = *(middle - (2 * i + 1));
      const SoundFrame& after = *(middle + (2 * i + 1));
      frame.left += taps_[i] * (before.left + after.left);
      frame.right += taps_[i] * (before.right + after.right);
    }
    middle += 2;
  }
  std::copy_n(line_.begin() + static_cast<std::ptrdiff_t>(in.size()), older(), line_.begin());
}

}  // namespace tandem

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

void add_pair(float tap, const SoundFrame* before, const SoundFrame* after, std::span<SoundFrame> to) noexcept {
  for (std::size_t i = 0; i < to.size(); ++i) {
    to[i].left += tap * (before[i].left + after[i].left);
    to[i].right += tap * (before[i].right + after[i].right);
  }
}

double kaiser(double x) noexcept { return bessel_i0(kKaiser * std::sqrt(1.0 - x * x)) / bessel_i0(kKaiser); }

}  // namespace

HalvingFilter::HalvingFilter(std::size_t pairs, std::size_t largest_in)
    : taps_(pairs), outer_(older() + largest_in / 2), middle_(outer_.size()) {
  double sum = 0.0;
  for (std::size_t i = 0; i < pairs; ++i) {
    const double at = static_cast<double>(2 * i + 1);
    const double sine = i % 2 == 0 ? 1.0 : -1.0;
    taps_[i] = static_cast<float>(sine / (std::numbers::pi * at) * kaiser(at / static_cast<double>(2 * pairs)));
    sum += 2.0 * static_cast<double>(taps_[i]);
  }
  for (float& tap : taps_) tap *= static_cast<float>(0.5 / sum);  // 1 at 0 Hz
}

void HalvingFilter::clear() noexcept {
  std::fill(outer_.begin(), outer_.end(), SoundFrame{});
  std::fill(middle_.begin(), middle_.end(), SoundFrame{});
}

// A tap at a time over the whole block, which the compiler turns into vectors.
void HalvingFilter::halve(std::span<const SoundFrame> in, std::span<SoundFrame> out) noexcept {
  const std::size_t pairs = taps_.size();
  for (std::size_t i = 0; i < out.size(); ++i) {
    outer_[older() + i] = in[2 * i];
    middle_[older() + i] = in[2 * i + 1];
  }
  for (std::size_t i = 0; i < out.size(); ++i)
    out[i] = {0.5F * middle_[pairs - 1 + i].left, 0.5F * middle_[pairs - 1 + i].right};
  for (std::size_t tap = 0; tap < pairs; ++tap)
    add_pair(taps_[tap], &outer_[pairs - 1 - tap], &outer_[pairs + tap], out);
  std::copy_n(outer_.begin() + static_cast<std::ptrdiff_t>(out.size()), older(), outer_.begin());
  std::copy_n(middle_.begin() + static_cast<std::ptrdiff_t>(out.size()), older(), middle_.begin());
}

}  // namespace tandem

#include "platform/output/halfband_doubler.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

#include "engine/core/window_shapes.h"

namespace tandem {

namespace {
constexpr double kStopBandDb = 140.0;
}

// The sinc of half the band at the odd places: the even ones are its zeros.
HalfbandDoubler::HalfbandDoubler() noexcept {
  std::array<double, kReach> taps;
  for (std::size_t k = 0; k < kReach; ++k) {
    const double place = static_cast<double>(k) + 0.5;  // in frames of what comes
    taps[k] = std::sin(std::numbers::pi * place) / place * kaiser_window(place / kReach, kaiser_beta(kStopBandDb));
  }
  const double sum = 2.0 * std::accumulate(taps.begin(), taps.end(), 0.0);
  std::transform(taps.begin(), taps.end(), taps_.begin(), [sum](double tap) { return static_cast<float>(tap / sum); });
}

// The frame in the middle of the 2 * kReach that begin there.
StereoFrame HalfbandDoubler::between(std::size_t first) const noexcept {
  StereoFrame sum;
  for (std::size_t k = 0; k < kReach; ++k) {
    const StereoFrame& before = recent_[first + kReach - 1 - k];
    const StereoFrame& after = recent_[first + kReach + k];
    sum.left += taps_[k] * (before.left + after.left);
    sum.right += taps_[k] * (before.right + after.right);
  }
  return sum;
}

void HalfbandDoubler::take(std::size_t count) noexcept {
  const std::size_t begin = std::min(early_, count);
  early_ -= begin;
  from_ = to_ = 0;
  for (std::size_t i = begin; i < count; ++i) {
    doubled_[to_++] = recent_[i + kReach - 1];
    doubled_[to_++] = between(i);
  }
  std::copy_n(recent_.begin() + static_cast<std::ptrdiff_t>(count), kKept, recent_.begin());
}

void HalfbandDoubler::end() noexcept {
  std::fill_n(input().begin(), kReach, StereoFrame{});
  take(kReach);
  std::fill_n(recent_.begin(), kKept, StereoFrame{});
  early_ = kReach;
}

std::size_t HalfbandDoubler::read(std::span<StereoFrame> out) noexcept {
  const std::size_t count = std::min(out.size(), to_ - from_);
  std::copy_n(doubled_.begin() + static_cast<std::ptrdiff_t>(from_), count, out.begin());
  from_ += count;
  return count;
}

}  // namespace tandem

#include "engine/device/quantizer16.h"

#include <algorithm>
#include <cmath>

namespace tandem {

namespace {
constexpr float kSteps = 32768.0F;  // of full scale
constexpr long kLeast = -32768;
constexpr long kMost = 32767;
constexpr std::uint32_t kLowHalf = 0xFFFFU;

bool is_whole(float steps) noexcept { return static_cast<float>(std::lrintf(steps)) == steps; }
std::int16_t in_range(float steps) noexcept {
  return static_cast<std::int16_t>(std::clamp(std::lrintf(steps), kLeast, kMost));
}
}  // namespace

// The difference of two even random numbers, in steps: -1 .. 1. Method: xorshift (Marsaglia 2003), one half for each.
float Quantizer16::triangular() noexcept {
  noise_ ^= noise_ << 13U;
  noise_ ^= noise_ >> 17U;
  noise_ ^= noise_ << 5U;
  const auto a = static_cast<std::int32_t>(noise_ >> 16U);
  const auto b = static_cast<std::int32_t>(noise_ & kLowHalf);
  return static_cast<float>(a - b) / static_cast<float>(kLowHalf + 1);
}

std::int16_t Quantizer16::dithered(float steps) noexcept { return in_range(steps + triangular()); }

void Quantizer16::convert(std::span<const StereoFrame> from, std::span<Sample16> to) noexcept {
  for (std::size_t i = 0; i < from.size(); ++i) {
    const StereoFrame steps{from[i].left * kSteps, from[i].right * kSteps};
    const bool exact = is_whole(steps.left) && is_whole(steps.right);
    dither_for_ = exact ? std::max(dither_for_ - 1, 0) : kHold;
    to[i] = dither_for_ == 0 ? Sample16{in_range(steps.left), in_range(steps.right)}
                             : Sample16{dithered(steps.left), dithered(steps.right)};
  }
}

}  // namespace tandem

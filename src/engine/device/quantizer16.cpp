#include "engine/device/quantizer16.h"

#include <algorithm>

namespace tandem {

namespace {
constexpr float kSteps = 32768.0F;  // of full scale
constexpr float kFar = 65536.0F;    // steps: beyond full scale, with or without noise
constexpr int kLeast = -32768;
constexpr int kMost = 32767;
constexpr std::uint32_t kLowHalf = 0xFFFFU;

constexpr std::size_t kLot = 128;  // frames
using LotOfSteps = std::array<float, 2 * kLot>;

// To the nearest whole number, ties to even, for less than 2^22 either way: a float of this size has no room for more.
// lrintf() does the same by a call.
float whole(float steps) noexcept {
  constexpr float kNoFraction = 12582912.0F;  // 1.5 x 2^23
  return (steps + kNoFraction) - kNoFraction;
}

// What is no number counts as far below.
float in_steps(float sample) noexcept { return std::max(-kFar, std::min(sample * kSteps, kFar)); }

std::int16_t in_range(float steps) noexcept {
  return static_cast<std::int16_t>(std::clamp(static_cast<int>(whole(steps)), kLeast, kMost));
}

LotOfSteps steps_of(std::span<const StereoFrame> frames) noexcept {
  LotOfSteps steps = {};
  for (std::size_t i = 0; i < frames.size(); ++i) {
    steps[2 * i] = in_steps(frames[i].left);
    steps[2 * i + 1] = in_steps(frames[i].right);
  }
  return steps;
}
}  // namespace

// Method: xorshift (Marsaglia 2003), eight generators side by side. Each value is the difference of two even random
// numbers, one half of 32 bits for each.
void Quantizer16::make_noise() noexcept {
  for (std::size_t i = 0; i < noise_.size(); i += generators_.size()) {
    for (std::size_t k = 0; k < generators_.size(); ++k) {
      std::uint32_t& bits = generators_[k];
      bits ^= bits << 13U;
      bits ^= bits >> 17U;
      bits ^= bits << 5U;
      const int difference = static_cast<int>(bits >> 16U) - static_cast<int>(bits & kLowHalf);
      noise_[i + k] = static_cast<float>(difference) / static_cast<float>(kLowHalf + 1);
    }
  }
  used_ = 0;
}

// Adds noise where it is due. It does not depend on how the sound is cut into calls.
void Quantizer16::dither(std::span<float> steps) noexcept {
  for (std::size_t i = 0; i < steps.size(); i += 2) {
    const bool exact = whole(steps[i]) == steps[i] && whole(steps[i + 1]) == steps[i + 1];
    dither_for_ = exact ? std::max(dither_for_ - 1, 0) : kHold;
    if (dither_for_ == 0) continue;
    if (used_ == noise_.size()) make_noise();
    steps[i] += noise_[used_++];
    steps[i + 1] += noise_[used_++];
  }
}

void Quantizer16::convert(std::span<const StereoFrame> from, std::span<Sample16> to) noexcept {
  for (std::size_t done = 0; done < from.size(); done += kLot) {
    const auto frames = from.subspan(done, std::min(kLot, from.size() - done));
    LotOfSteps steps = steps_of(frames);
    dither(std::span(steps).first(2 * frames.size()));
    for (std::size_t i = 0; i < frames.size(); ++i) to[done + i] = {in_range(steps[2 * i]), in_range(steps[2 * i + 1])};
  }
}

}  // namespace tandem

#include "engine/decode/downmix.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>

namespace tandem {
namespace {

constexpr float kHalfPower = 0.70710678F;  // -3 dB
constexpr float kQuarterPower = 0.5F;      // -6 dB

// Front, back and side channels by ITU-R BS.775-3, annex 4; what it leaves out (low frequencies, ceiling) quietly in
// both. In the order of the channel mask's bits (WAVEFORMATEXTENSIBLE, dwChannelMask).
constexpr std::array<StereoFrame, 18> kGains = {{
    {1.0F, 0.0F},                    // front left
    {0.0F, 1.0F},                    // front right
    {kHalfPower, kHalfPower},        // front centre
    {kQuarterPower, kQuarterPower},  // low frequencies
    {kHalfPower, 0.0F},              // back left
    {0.0F, kHalfPower},              // back right
    {kHalfPower, 0.0F},              // front left of centre
    {0.0F, kHalfPower},              // front right of centre
    {kQuarterPower, kQuarterPower},  // back centre
    {kHalfPower, 0.0F},              // side left
    {0.0F, kHalfPower},              // side right
    {kQuarterPower, kQuarterPower},  // top centre
    {kHalfPower, 0.0F},              // top front left
    {kQuarterPower, kQuarterPower},  // top front centre
    {0.0F, kHalfPower},              // top front right
    {kHalfPower, 0.0F},              // top back left
    {kQuarterPower, kQuarterPower},  // top back centre
    {0.0F, kHalfPower},              // top back right
}};

constexpr std::size_t kLowFrequencies = 3;

// The places that a number of channels takes where a file has no mask.
constexpr std::array<std::uint32_t, 9> kUsualMasks = {0x0, 0x4, 0x3, 0x7, 0x33, 0x37, 0x3F, 0x70F, 0x63F};

// The lowest place of the mask, which is then taken off it; kGains.size() if none is left.
std::size_t take_place(std::uint32_t& mask) {
  const auto place = std::min(static_cast<std::size_t>(std::countr_zero(mask)), kGains.size());
  if (place < kGains.size()) mask &= mask - 1;
  return place;
}

}  // namespace

Downmix::Downmix(int channels, std::uint32_t channel_mask) {
  const auto count = static_cast<std::size_t>(channels);
  if (channel_mask == 0 && count < kUsualMasks.size()) channel_mask = kUsualMasks.at(count);
  StereoFrame sum;
  for (std::size_t channel = 0; channel < count; ++channel) {
    const std::size_t place = take_place(channel_mask);
    const StereoFrame gain = place < kGains.size() ? kGains.at(place) : StereoFrame{kQuarterPower, kQuarterPower};
    gains_.push_back(gain);
    if (place == kLowFrequencies) continue;
    sum.left += gain.left;
    sum.right += gain.right;
  }
  normalise(std::max({sum.left, sum.right, 1.0F}));
  if (count == 1) gains_ = {{1.0F, 1.0F}};
  if (count == 2) gains_ = {{1.0F, 0.0F}, {0.0F, 1.0F}};
}

void Downmix::normalise(float sum) noexcept {
  for (StereoFrame& gain : gains_) gain = {gain.left / sum, gain.right / sum};
}

void Downmix::process(std::span<const float> in, std::span<StereoFrame> out) const noexcept {
  const float* sample = in.data();
  if (gains_.size() == 2) {  // as they are
    for (StereoFrame& frame : out) frame = {*sample++, *sample++};
    return;
  }
  for (StereoFrame& frame : out) {
    frame = {};
    for (const StereoFrame& gain : gains_) {
      frame.left += gain.left * *sample;
      frame.right += gain.right * *sample;
      ++sample;
    }
  }
}

}  // namespace tandem

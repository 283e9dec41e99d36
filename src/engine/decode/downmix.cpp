#include "engine/decode/downmix.h"

#include <array>
#include <bit>
#include <cstddef>

namespace tandem {
namespace {

constexpr float kHalfPower = 0.70710678F;  // -3 dB
constexpr float kQuarterPower = 0.5F;      // -6 dB

// Front, back and side channels by ITU-R BS.775; what it leaves out (low frequencies, ceiling) quietly in both.
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

// The places that a number of channels takes where a file does not tell.
constexpr std::array<std::uint32_t, 9> kUsualSpeakers = {0x0, 0x4, 0x3, 0x7, 0x33, 0x37, 0x3F, 0x70F, 0x63F};

StereoFrame take_speaker(std::uint32_t& speakers) {
  const auto place = static_cast<std::size_t>(std::countr_zero(speakers));
  if (place >= kGains.size()) return {kQuarterPower, kQuarterPower};
  speakers &= speakers - 1;
  return kGains.at(place);
}

}  // namespace

Downmix::Downmix(int channels, std::uint32_t speakers) {
  const auto count = static_cast<std::size_t>(channels);
  if (speakers == 0 && count < kUsualSpeakers.size()) speakers = kUsualSpeakers.at(count);
  for (std::size_t channel = 0; channel < count; ++channel) gains_.push_back(take_speaker(speakers));
  if (count == 1) gains_ = {{1.0F, 1.0F}};
  if (count == 2) gains_ = {{1.0F, 0.0F}, {0.0F, 1.0F}};
}

void Downmix::process(std::span<const float> in, std::span<StereoFrame> out) const noexcept {
  const float* sample = in.data();
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

#include "engine/pitch/splice_fade.h"

#include <algorithm>
#include <cmath>

#include "engine/core/window_shapes.h"

namespace tandem {

SpliceFade::SpliceFade() {
  for (std::size_t i = 0; i < rise_.size(); ++i) {
    const double part = (static_cast<double>(i) + 0.5) / static_cast<double>(rise_.size());
    rise_[i] = static_cast<float>(raised_cosine(part));
  }
}

void SpliceFade::start(double jump, Frames length, float likeness) noexcept {
  jump_ = jump;
  length_ = length;
  left_ = length;
  unlike_ = 1.0F - std::clamp(likeness, 0.0F, 1.0F);
}

void SpliceFade::mix(std::span<const StereoFrame> old, std::span<StereoFrame> fresh) noexcept {
  const Frames stride = SplicePlan::kLongestFade / length_;
  auto at = static_cast<std::size_t>((length_ - left_) * stride + stride / 2);
  for (std::size_t i = 0; i < fresh.size(); ++i) {
    const float rise = rise_[at];
    const float power = 1.0F - 2.0F * rise * (1.0F - rise) * unlike_;
    const float in = rise / std::sqrt(power);
    const float out = (1.0F - rise) / std::sqrt(power);
    fresh[i] = {out * old[i].left + in * fresh[i].left, out * old[i].right + in * fresh[i].right};
    at += static_cast<std::size_t>(stride);
  }
  left_ -= static_cast<Frames>(fresh.size());
}

}  // namespace tandem

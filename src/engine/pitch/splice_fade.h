// The cross-fade of a splice: for some frames the place that is left sounds too, falling as the new one rises. The two
// halves of a Hann window add up to 1 for equal sounds; for sounds that differ they are raised so that the power stays:
// by 3 dB in the middle where nothing is common.
// Source: M. Fink, M. Holters, U. Zoelzer: Signal-matched power-complementary cross-fading and dry-wet mixing, DAFx
// 2016. One thread; allocates nothing.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "engine/pitch/splice_plan.h"

namespace tandem {

class SpliceFade {
 public:
  SpliceFade();

  // jump: the place that is left less the new one, in song frames, as both are read on; length: as in SplicePlan.
  void start(double jump, Frames length, float likeness) noexcept;
  void stop() noexcept { left_ = 0; }

  bool active() const noexcept { return left_ > 0; }
  Frames left() const noexcept { return left_; }  // frames given until it is over
  double jump() const noexcept { return active() ? jump_ : 0.0; }

  // Mixes the place that is left into the new one, at most left() frames of each, and goes on by as many.
  void mix(std::span<const StereoFrame> old, std::span<StereoFrame> fresh) noexcept;

 private:
  std::array<float, static_cast<std::size_t>(SplicePlan::kLongestFade)> rise_{};
  double jump_ = 0.0;
  Frames length_ = SplicePlan::kLongestFade;
  Frames left_ = 0;
  float unlike_ = 0.0F;
};

}  // namespace tandem

#include "engine/render/limiter_envelope.h"

#include <algorithm>
#include <cmath>

#include "engine/core/frames.h"

namespace tandem {

namespace {

constexpr float frames_in(double milliseconds) { return static_cast<float>(milliseconds * kSampleRate / 1000.0); }

constexpr float kSlope = 1.65F;                     // octaves of level (6.02 dB) in 1 ms
constexpr float kStray = frames_in(2.0);            // so long beyond full scale: still short
constexpr float kLasting = frames_in(4.0);          // so long: lasting
constexpr float kReleaseOfOvershoot = 20.0F;        // the release's time constant for the time beyond full scale
constexpr float kLongestRelease = frames_in(87.0);  // time constant: 90 % of the way in 200 ms
constexpr float kReleaseTarget = 0.98F;             // a little beyond full gain, to arrive there in finite time

// What is left of a divisor one frame further on, and of the time beyond full scale one block further on.
const float usual_slope = std::exp2(-kSlope / frames_in(1.0));
const float kept_overshoot = std::exp(-static_cast<float>(LimiterEnvelope::kBlock) / frames_in(150.0));

// The slope that brings the gain down to a peak within the look-ahead.
float slope_to(float peak) {
  return std::min(usual_slope, std::pow(peak, -1.0F / static_cast<float>(LimiterEnvelope::kAhead)));
}

Divisor greater(const Divisor& a, const Divisor& b) { return {std::max(a.left, b.left), std::max(a.right, b.right)}; }
Divisor scaled(const Divisor& d, float by) { return {d.left * by, d.right * by}; }
float peak_of(const Divisor& d) { return std::max(d.left, d.right); }

}  // namespace

void LimiterEnvelope::count(std::size_t beyond) noexcept {
  overshoot_ = overshoot_ * kept_overshoot + static_cast<float>(beyond);
}

void LimiterEnvelope::remember(float peak) noexcept {
  newest_peak_ = (newest_peak_ + 1) % peaks_.size();
  peaks_[newest_peak_] = peak;
  held_peak_ = *std::max_element(peaks_.begin(), peaks_.end());
}

// Writes the newest block over the one that has sounded, and the slopes up to its peaks before it, as far back as they
// stand out.
void LimiterEnvelope::lead_up(const Block& excess, float peak) noexcept {
  const std::size_t end = oldest_ + needed_.size();
  if (peak == 1.0F) {
    std::fill_n(needed_.begin() + static_cast<std::ptrdiff_t>((end - kBlock) % needed_.size()), kBlock, Divisor{});
    return;
  }
  const float slope = slope_to(peak);
  Divisor ahead;
  for (std::size_t i = 0; i < needed_.size(); ++i) {
    Divisor& here = needed_[(end - 1 - i) % needed_.size()];
    ahead = greater(scaled(ahead, slope), i < kBlock ? excess[kBlock - 1 - i] : here);
    if (i >= kBlock && ahead.left == here.left && ahead.right == here.right) return;
    here = ahead;
  }
}

float LimiterEnvelope::long_target() const noexcept {
  const float lasting = std::clamp((overshoot_ - kStray) / (kLasting - kStray), 0.0F, 1.0F);
  return 1.0F + lasting * (held_peak_ - 1.0F);
}

Divisor LimiterEnvelope::next_divisor(const Divisor& needed, float target, float kept) noexcept {
  const float risen = std::min(target, long_ / usual_slope);
  const float released = kReleaseTarget + (long_ - kReleaseTarget) * kept;
  long_ = std::max(std::max(risen, released), 1.0F);
  short_ = greater(needed, scaled(short_, usual_slope));
  return greater(short_, {long_, long_});
}

LimiterEnvelope::Block LimiterEnvelope::next(const Block& excess, std::size_t beyond) noexcept {
  float peak = 1.0F;
  if (beyond > 0)
    for (const Divisor& d : excess) peak = std::max(peak, peak_of(d));
  count(beyond);
  remember(peak);
  oldest_ = (oldest_ + kBlock) % needed_.size();
  lead_up(excess, peak);
  const float target = long_target();
  const float kept = 1.0F - 1.0F / std::min(1.0F + kReleaseOfOvershoot * overshoot_, kLongestRelease);
  Block result;
  for (std::size_t i = 0; i < kBlock; ++i) result[i] = next_divisor(needed_[oldest_ + i], target, kept);
  at_rest_ = held_peak_ == 1.0F && long_ == 1.0F && peak_of(short_) <= 1.0F;
  return result;
}

}  // namespace tandem

#include "engine/limiter.h"

#include <algorithm>
#include <cmath>

namespace tandem {

namespace {

// The release aims a little beyond full gain, so that it arrives in finite time.
constexpr double kReleaseTarget = 1.02;
const double release_step = 1.0 - std::exp(-1.0 / (Limiter::kReleaseSeconds * kSampleRate));

float peak_of(const StereoFrame& frame) { return std::max(std::abs(frame.left), std::abs(frame.right)); }

float within_one(float sample) { return std::clamp(sample, -1.0F, 1.0F); }

}  // namespace

Limiter::Gain Limiter::Mean::put(Gain value) noexcept {
  sum_ += value - last_[place_];
  last_[place_] = value;
  place_ = (place_ + 1) % kLength;
  return sum_ / static_cast<Gain>(kLength);
}

Limiter::Gain Limiter::Least::put(Gain value) noexcept {
  ++now_;
  if (first_ != last_ && entries_[first_ % kSize].until < now_) ++first_;
  if (value < kFull) {
    while (first_ != last_ && entries_[(last_ - 1) % kSize].value >= value) --last_;
    entries_[last_++ % kSize] = {value, now_ + kWindow};
  }
  return empty() ? kFull : entries_[first_ % kSize].value;
}

bool Limiter::within_full_scale(std::span<const StereoFrame> frames) noexcept {
  // Counting instead of leaving at the first keeps the loop free of branches, and a NaN is not within.
  std::size_t beyond = 0;
  for (const StereoFrame& frame : frames) {
    beyond += static_cast<std::size_t>(!(std::abs(frame.left) <= 1.0F)) +
              static_cast<std::size_t>(!(std::abs(frame.right) <= 1.0F));
  }
  return beyond == 0;
}

Limiter::Gain Limiter::needed_gain(const StereoFrame& frame) noexcept {
  const float peak = peak_of(frame);
  if (peak <= 1.0F) return kFull;
  return static_cast<Gain>(static_cast<double>(kFull) / static_cast<double>(peak));
}

void Limiter::process(std::span<StereoFrame> in_out) noexcept {
  constexpr std::size_t kStretch = 64;
  while (!in_out.empty()) {
    const auto stretch = in_out.first(std::min(in_out.size(), kStretch));
    if (at_rest() && within_full_scale(stretch)) {
      pass(stretch);
    } else {
      for (StereoFrame& frame : stretch) limit(frame);
    }
    in_out = in_out.subspan(stretch.size());
  }
}

void Limiter::pass(std::span<StereoFrame> in_out) noexcept {
  for (StereoFrame& frame : in_out) {
    std::swap(frame, delayed_[place_]);
    place_ = (place_ + 1) % delayed_.size();
  }
}

void Limiter::limit(StereoFrame& frame) noexcept {
  if (!std::isfinite(frame.left) || !std::isfinite(frame.right)) frame = {};
  const Gain least = least_.put(needed_gain(frame));
  const auto current = static_cast<double>(envelope_);
  const double risen = current + (kReleaseTarget * static_cast<double>(kFull) - current) * release_step;
  envelope_ = std::min({least, static_cast<Gain>(risen), kFull});
  calm_ = envelope_ == kFull ? std::min(calm_ + 1, 2 * kDelay) : 0;
  gain_ = static_cast<float>(second_mean_.put(first_mean_.put(envelope_))) / static_cast<float>(kFull);
  std::swap(frame, delayed_[place_]);
  place_ = (place_ + 1) % delayed_.size();
  frame.left = within_one(frame.left * gain_);
  frame.right = within_one(frame.right * gain_);
}

}  // namespace tandem

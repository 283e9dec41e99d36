#include "engine/render/limiter.h"

#include <algorithm>
#include <cmath>

namespace tandem {

namespace {

// The release aims a little beyond full gain, so that it arrives in finite time.
constexpr float kReleaseTarget = 1.02F;
const auto release_step =
    static_cast<float>(1.0 - std::exp(-static_cast<double>(Limiter::kCell) / (Limiter::kReleaseSeconds * kSampleRate)));

using Cell = std::span<StereoFrame, Limiter::kCell>;

// False too if a sample is no number. Counts rather than leaving early: a loop without branches.
bool within_full_scale(Cell frames) {
  int within = 0;
  for (const StereoFrame& frame : frames) {
    within += static_cast<int>(std::abs(frame.left) <= 1.0F) + static_cast<int>(std::abs(frame.right) <= 1.0F);
  }
  return within == 2 * static_cast<int>(frames.size());
}

void silence_what_is_no_number(Cell frames) {
  for (StereoFrame& frame : frames) {
    if (!std::isfinite(frame.left) || !std::isfinite(frame.right)) frame = {};
  }
}

float peak_of(Cell frames) {
  float peak = 0.0F;
  for (const StereoFrame& frame : frames) peak = std::max({peak, std::abs(frame.left), std::abs(frame.right)});
  return peak;
}

// Rounding can lift a peak by its last place.
float within_one(float sample) { return std::clamp(sample, -1.0F, 1.0F); }

void apply(Cell frames, float from, float to) {
  const float slope = (to - from) / static_cast<float>(Limiter::kCell);
  for (std::size_t i = 0; i < frames.size(); ++i) {
    const float gain = from + slope * static_cast<float>(i + 1);
    frames[i] = {within_one(frames[i].left * gain), within_one(frames[i].right * gain)};
  }
}

}  // namespace

void Limiter::process(std::span<StereoFrame> in_out) noexcept {
  while (!in_out.empty()) {
    const std::size_t count = std::min(in_out.size(), kCell - place_ % kCell);
    for (std::size_t i = 0; i < count; ++i) std::swap(in_out[i], sound_[place_ + i]);
    place_ += count;
    in_out = in_out.subspan(count);
    if (place_ % kCell == 0) end_cell();
  }
}

void Limiter::end_cell() noexcept {
  const Cell filled = cell(place_ / kCell - 1);
  if (place_ == sound_.size()) place_ = 0;
  const bool quiet = within_full_scale(filled);
  if (quiet && at_rest()) return;
  if (!quiet) silence_what_is_no_number(filled);
  const float from = gain_;
  gain_ = next_gain(quiet ? 1.0F : peak_of(filled));
  // The oldest cell lies where the next input will go.
  if (from != 1.0F || gain_ != 1.0F) apply(cell(place_ / kCell), from, gain_);
}

// A gain takes part in the weighted mean of four cells, and a cell's line runs between two such means: five cells in
// all, none of which asks for more than the cell that is given out allows.
float Limiter::next_gain(float peak) noexcept {
  newest_ = (newest_ + 1) % needed_.size();
  needed_[newest_] = peak > 1.0F ? 1.0F / peak : 1.0F;
  const float least = *std::min_element(needed_.begin(), needed_.end());
  const float risen = envelope_[0] + (kReleaseTarget - envelope_[0]) * release_step;
  std::shift_right(envelope_.begin(), envelope_.end(), 1);
  envelope_[0] = std::min(least, risen);
  const float mean = (envelope_[0] + 2.0F * envelope_[1] + 2.0F * envelope_[2] + envelope_[3]) / 6.0F;
  calm_ = least == 1.0F && mean == 1.0F && gain_ == 1.0F ? std::min(calm_ + 1, kRemembered) : 0;
  return mean;
}

}  // namespace tandem

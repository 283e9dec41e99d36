#include "engine/pitch/onset_detector.h"

#include <algorithm>

#include "engine/pitch/pitch_kernels.h"

namespace tandem {
namespace {

constexpr float kRise = 4.0F;      // in energy: 6 dB
constexpr float kSilence = 1e-7F;  // energy of a block that is no sound yet: -85 dBFS
constexpr Frames kApart = 441;     // one attack is found once
constexpr auto kBlockCount = static_cast<std::size_t>(OnsetDetector::kBlock);

float energy(const float* sound) noexcept { return dot_product(sound, sound, kBlockCount); }

// Of the second difference, which raises by 12 dB an octave.
float high_energy(const float* sound) noexcept {
  std::array<float, kBlockCount> bend;
  for (std::size_t i = 0; i < kBlockCount; ++i, ++sound) bend[i] = sound[0] - 2.0F * sound[-1] + sound[-2];
  return energy(bend.data());
}

}  // namespace

void OnsetDetector::restart(Frames at) noexcept {
  *this = OnsetDetector{};
  scanned_ = at;
}

void OnsetDetector::scan(const SlidingWindow& song, Frames up_to) noexcept {
  scanned_ = std::max(scanned_, song.begin() + kContext);
  for (; scanned_ + kBlock <= up_to; scanned_ += kBlock) {
    const float* left = song.left(scanned_);
    const float* right = song.right(scanned_);
    const bool whole = rises(whole_band_, energy(left) + energy(right));
    const bool high = rises(high_band_, high_energy(left) + high_energy(right));
    slot_ = (slot_ + 1) % kHistory;
    if (whole || high) remember(scanned_);
  }
}

void OnsetDetector::forget(Frames before) noexcept {
  const auto known = onsets();
  const auto kept = std::lower_bound(known.begin(), known.end(), before);
  std::copy(kept, known.end(), onsets_.begin());
  count_ -= static_cast<std::size_t>(kept - known.begin());
}

bool OnsetDetector::rises(History& history, float energy) const noexcept {
  const float greatest = *std::max_element(history.begin(), history.end());
  history[slot_] = energy;
  return energy > kRise * greatest + kSilence;
}

void OnsetDetector::remember(Frames onset) noexcept {
  if (count_ > 0 && onset - onsets_[count_ - 1] < kApart) return;
  if (count_ == onsets_.size()) forget(onsets_[1]);
  onsets_[count_++] = onset;
}

}  // namespace tandem

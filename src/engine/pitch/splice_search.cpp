#include "engine/pitch/splice_search.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "engine/pitch/pitch_kernels.h"

namespace tandem {
namespace {

// Energy below which two sounds count as silent: no place is more like the other then.
constexpr float kSilent = 1e-9F;

void thin_out(const float* from, std::size_t by, std::span<float> to) noexcept {
  for (float& value : to) {
    value = 0.0F;
    for (std::size_t i = 0; i < by; ++i) value += *from++;
  }
}

float likeness(float product, float energy, float other_energy) noexcept {
  const float both = energy * other_energy;
  return both < kSilent * kSilent ? 0.0F : product / std::sqrt(both);
}

float penalty(Frames at, Frames centre, float bias) noexcept {
  const float off = static_cast<float>(at - centre) / static_cast<float>(SpliceSearch::kReach);
  return bias * off * off;
}

float energy(const float* left, const float* right, std::size_t count) noexcept {
  return dot_product(left, left, count) + dot_product(right, right, count);
}

// Keeps the place with the highest score.
struct Best {
  Frames at;
  float score = -1e9F;
  void offer(Frames place, float value) noexcept {
    if (value > score) *this = {place, value};
  }
};

}  // namespace

Frames SpliceSearch::best(const SlidingWindow& sound, Frames tail, Frames centre, float bias) noexcept {
  const Frames low = std::max(centre - kReach, sound.begin());
  const Frames high = centre + kReach;
  if (low >= high) return low;
  const Frames about = coarse(sound, tail, low, high, centre, bias);
  const float tail_energy = energy(sound.left(tail), sound.right(tail), kOverlap);
  Best best{about};
  const Frames near = static_cast<Frames>(kCoarse) + 2;
  for (Frames at = std::max(low, about - near); at <= std::min(high, about + near); ++at) {
    const float product = dot_product(sound.left(tail), sound.left(at), kOverlap) +
                          dot_product(sound.right(tail), sound.right(at), kOverlap);
    const float at_energy = energy(sound.left(at), sound.right(at), kOverlap);
    best.offer(at, likeness(product, tail_energy, at_energy) - penalty(at, centre, bias));
  }
  return best.at;
}

Frames SpliceSearch::coarse(const SlidingWindow& sound, Frames tail, Frames low, Frames high, Frames centre,
                            float bias) noexcept {
  const std::size_t places = static_cast<std::size_t>(high - low) / kCoarse;
  thin_out(sound.left(tail), kCoarse, pattern_[0]);
  thin_out(sound.right(tail), kCoarse, pattern_[1]);
  thin_out(sound.left(low), kCoarse, std::span(field_[0]).first(places + kCoarseOverlap));
  thin_out(sound.right(low), kCoarse, std::span(field_[1]).first(places + kCoarseOverlap));
  const float tail_energy = energy(pattern_[0].data(), pattern_[1].data(), kCoarseOverlap);
  Best best{low};
  for (std::size_t i = 0; i < places; ++i) {
    const float* left = field_[0].data() + i;
    const float* right = field_[1].data() + i;
    const Frames at = low + static_cast<Frames>(i * kCoarse);
    const float product =
        dot_product(pattern_[0].data(), left, kCoarseOverlap) + dot_product(pattern_[1].data(), right, kCoarseOverlap);
    best.offer(at, likeness(product, tail_energy, energy(left, right, kCoarseOverlap)) - penalty(at, centre, bias));
  }
  return best.at;
}

}  // namespace tandem

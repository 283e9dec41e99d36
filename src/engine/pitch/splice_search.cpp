#include "engine/pitch/splice_search.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>

#include "engine/pitch/pitch_kernels.h"

namespace tandem {
namespace {

// Energy below which two sounds count as silent: no place is more like the other then.
constexpr double kSilent = 1e-9;

void thin_out(const float* from, std::size_t by, std::span<float> to) noexcept {
  for (float& value : to) {
    value = 0.0F;
    for (std::size_t i = 0; i < by; ++i) value += *from++;
  }
}

float normalised(float product, double energy, double other_energy) noexcept {
  const double both = energy * other_energy;
  return both < kSilent * kSilent ? 0.0F : static_cast<float>(static_cast<double>(product) / std::sqrt(both));
}

float correlation(const SlidingWindow& sound, Frames a, Frames b) noexcept {
  constexpr auto kCount = static_cast<std::size_t>(SpliceSearch::kOverlap);
  return dot_product(sound.left(a), sound.left(b), kCount) + dot_product(sound.right(a), sound.right(b), kCount);
}

float likeness(const SlidingWindow& sound, Frames a, Frames b) noexcept {
  return normalised(correlation(sound, a, b), static_cast<double>(correlation(sound, a, a)),
                    static_cast<double>(correlation(sound, b, b)));
}

// A cosine through three values: the middle one, by how much the last exceeds the first, and by how much twice the
// middle one exceeds both. Returns where its top is; the middle one is at 0. The differences are arguments, for the
// values themselves are rounded too coarsely for low tones.
double top_of_cosine(double middle, double rise, double bend) noexcept {
  const double square = std::clamp(bend / (4.0 * middle), 0.0, 1.0);
  if (middle <= 0.0 || square < 1e-12) return 0.0;
  const double turn = 2.0 * std::asin(std::sqrt(square));
  return std::clamp(std::atan(rise / (2.0 * middle * std::sin(turn))) / turn, -1.0, 1.0);
}

}  // namespace

SpliceSearch::SpliceSearch() {
  for (std::size_t i = 0; i < kCount; ++i) {
    const double turn = 2.0 * std::numbers::pi * (static_cast<double>(i) + 0.5) / static_cast<double>(kCount);
    window_[i] = static_cast<float>(0.35875 - 0.48829 * std::cos(turn) + 0.14128 * std::cos(2.0 * turn) -
                                    0.01168 * std::cos(3.0 * turn));
  }
}

Splice SpliceSearch::best(const SlidingWindow& sound, double tail, const SpliceRange& range) noexcept {
  const double whole = std::floor(tail);
  const auto from = static_cast<Frames>(whole);
  const double place = refined(sound, from, coarse(sound, from, range));
  return {place + (tail - whole), likeness(sound, from, static_cast<Frames>(std::lround(place)))};
}

// The bias chooses among the tops of the curve of likeness; it does not move them.
Frames SpliceSearch::coarse(const SlidingWindow& sound, Frames tail, const SpliceRange& range) noexcept {
  const std::size_t places = std::min(kPlaces, static_cast<std::size_t>(range.high - range.low) / kCoarse + 1);
  thin_out(sound.left(tail), kCoarse, pattern_[0]);
  thin_out(sound.right(tail), kCoarse, pattern_[1]);
  thin_out(sound.left(range.low), kCoarse, std::span(field_[0]).first(places - 1 + kCoarseCount));
  thin_out(sound.right(range.low), kCoarse, std::span(field_[1]).first(places - 1 + kCoarseCount));
  score_coarsely(places);
  std::size_t best = 0;
  float best_score = -1e9F;
  for (std::size_t i = 0; i < places; ++i) {
    const auto off =
        static_cast<float>(static_cast<double>(range.low + static_cast<Frames>(i * kCoarse)) - range.centre);
    const float score = scores_[i] - range.bias * (off / kReach) * (off / kReach);
    if (score <= best_score) continue;
    best = i;
    best_score = score;
  }
  while (best > 0 && scores_[best - 1] > scores_[best]) --best;
  while (best + 1 < places && scores_[best + 1] > scores_[best]) ++best;
  return range.low + static_cast<Frames>(best * kCoarse);
}

// The energy of each place follows from that of the one before it.
void SpliceSearch::score_coarsely(std::size_t places) noexcept {
  const auto product = [this](const Stereo<kCoarseCount>& pattern, std::size_t at) {
    return dot_product(pattern[0].data(), field_[0].data() + at, kCoarseCount) +
           dot_product(pattern[1].data(), field_[1].data() + at, kCoarseCount);
  };
  const auto square = [this](std::size_t i) {
    return static_cast<double>(field_[0][i]) * static_cast<double>(field_[0][i]) +
           static_cast<double>(field_[1][i]) * static_cast<double>(field_[1][i]);
  };
  double pattern_energy = 0.0;
  double energy = 0.0;
  for (std::size_t i = 0; i < kCoarseCount; ++i) {
    pattern_energy += static_cast<double>(pattern_[0][i]) * static_cast<double>(pattern_[0][i]) +
                      static_cast<double>(pattern_[1][i]) * static_cast<double>(pattern_[1][i]);
    energy += square(i);
  }
  for (std::size_t i = 0; i < places; ++i) {
    scores_[i] = normalised(product(pattern_, i), pattern_energy, std::max(energy, 0.0));
    if (i + 1 < places) energy += square(i + kCoarseCount) - square(i);
  }
}

// Under this window the correlation of a tone above 100 Hz is a pure wave (to -92 dB), whose top is where the phases
// agree.
double SpliceSearch::refined(const SlidingWindow& sound, Frames tail, Frames about) noexcept {
  for (std::size_t i = 0; i < kCount; ++i) {
    weighted_[0][i] = window_[i] * sound.left(tail)[i];
    weighted_[1][i] = window_[i] * sound.right(tail)[i];
  }
  Frames best = about;
  float greatest = product(sound.left(about), sound.right(about));
  for (Frames at = about - kNear; at <= about + kNear; ++at) {
    const float value = product(sound.left(at), sound.right(at));
    if (value <= greatest) continue;
    best = at;
    greatest = value;
  }
  return static_cast<double>(best) + top_near(sound, best, greatest);
}

// How far from the best whole frame the top lies.
double SpliceSearch::top_near(const SlidingWindow& sound, Frames at, float greatest) const noexcept {
  Stereo<kCount> rise;
  Stereo<kCount> bend;
  const std::array<const float*, 2> channels{sound.left(at), sound.right(at)};
  for (std::size_t channel = 0; channel < 2; ++channel) {
    const float* x = channels[channel];
    for (std::size_t i = 0; i < kCount; ++i, ++x) {
      rise[channel][i] = x[1] - x[-1];
      bend[channel][i] = (x[0] - x[1]) + (x[0] - x[-1]);
    }
  }
  return top_of_cosine(static_cast<double>(greatest), static_cast<double>(product(rise[0].data(), rise[1].data())),
                       static_cast<double>(product(bend[0].data(), bend[1].data())));
}

float SpliceSearch::product(const float* left, const float* right) const noexcept {
  return dot_product(weighted_[0].data(), left, kCount) + dot_product(weighted_[1].data(), right, kCount);
}

}  // namespace tandem

#include "engine/pitch/ratio_ramp.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "engine/core/window_shapes.h"

namespace tandem {
namespace {

constexpr int kRampFrames = 512;
constexpr double kShortestResync = 512.0;  // frames
constexpr double kResyncSpeed = 0.02;      // the greatest difference from 1

}  // namespace

void RatioRamp::begin(double ratio) noexcept {
  *this = RatioRamp{};
  ratio_ = ratio;
  target_ = ratio;
}

void RatioRamp::set_ratio(double ratio) noexcept {
  if (resyncing_) ratio_ = 1.0 + lead_at(done_ + 1) - lead_at(done_);
  resyncing_ = false;
  target_ = ratio;
  ramp_left_ = kRampFrames;
  slope_ = (target_ - ratio_) / kRampFrames;
}

void RatioRamp::resync(double lead) noexcept {
  resyncing_ = true;
  lead_ = lead;
  done_ = 0;
  const double span = std::abs(lead) * std::numbers::pi / 2.0 / kResyncSpeed;
  span_ = std::abs(lead) < 1e-9 ? 0 : static_cast<Frames>(std::max(span, kShortestResync));
}

double RatioRamp::top_ratio() const noexcept { return std::max({ratio_, target_, 1.0 + 1.5 * kResyncSpeed}); }

double RatioRamp::advance(double from, std::span<double> positions) noexcept {
  return resyncing_ ? advance_resync(from, positions) : advance_ramp(from, positions);
}

double RatioRamp::advance_ramp(double from, std::span<double> positions) noexcept {
  for (double& position : positions) {
    position = from;
    from += ratio_;
    if (ramp_left_ == 0) continue;
    --ramp_left_;
    ratio_ = ramp_left_ == 0 ? target_ : ratio_ + slope_;
  }
  return from;
}

// In unison positions are whole numbers: rounding removes what the sums have gathered.
double RatioRamp::advance_resync(double from, std::span<double> positions) noexcept {
  double unison = from - lead_at(done_);
  if (in_unison()) unison = std::round(unison);
  for (double& position : positions) {
    position = unison + lead_at(done_);
    unison += 1.0;
    ++done_;
  }
  return unison + lead_at(done_);
}

double RatioRamp::lead_at(Frames frame) const noexcept {
  if (frame >= span_) return 0.0;
  const double part = static_cast<double>(frame) / static_cast<double>(span_);
  return lead_ * (1.0 - raised_cosine(part));
}

}  // namespace tandem

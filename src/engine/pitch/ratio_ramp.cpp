#include "engine/pitch/ratio_ramp.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tandem {
namespace {

constexpr int kSteerFrames = 512;
constexpr double kShortestGlide = 512.0;
constexpr double kGlideSpeed = 0.02;

}  // namespace

void RatioRamp::begin(double ratio) noexcept {
  *this = RatioRamp{};
  ratio_ = ratio;
  target_ = ratio;
}

void RatioRamp::steer(double ratio) noexcept {
  if (gliding_) ratio_ = 1.0 + glide_ahead(done_ + 1) - glide_ahead(done_);
  gliding_ = false;
  target_ = ratio;
  left_ = kSteerFrames;
  slope_ = (target_ - ratio_) / kSteerFrames;
}

void RatioRamp::fall_into_step(double ahead) noexcept {
  gliding_ = true;
  ahead_ = ahead;
  done_ = 0;
  const double span = std::abs(ahead) * std::numbers::pi / 2.0 / kGlideSpeed;
  span_ = std::abs(ahead) < 1e-9 ? 0 : static_cast<Frames>(std::max(span, kShortestGlide));
}

double RatioRamp::top_ratio() const noexcept { return std::max({ratio_, target_, 1.0 + 1.5 * kGlideSpeed}); }

double RatioRamp::advance(double from, std::span<double> positions) noexcept {
  return gliding_ ? advance_gliding(from, positions) : advance_steered(from, positions);
}

double RatioRamp::advance_steered(double from, std::span<double> positions) noexcept {
  for (double& position : positions) {
    position = from;
    from += ratio_;
    if (left_ == 0) continue;
    --left_;
    ratio_ = left_ == 0 ? target_ : ratio_ + slope_;
  }
  return from;
}

// In step positions are whole numbers: rounding takes off what the sums have gathered.
double RatioRamp::advance_gliding(double from, std::span<double> positions) noexcept {
  double line = from - glide_ahead(done_);
  if (in_step()) line = std::round(line);
  for (double& position : positions) {
    position = line + glide_ahead(done_);
    line += 1.0;
    ++done_;
  }
  return line + glide_ahead(done_);
}

double RatioRamp::glide_ahead(Frames frame) const noexcept {
  if (frame >= span_) return 0.0;
  const double part = static_cast<double>(frame) / static_cast<double>(span_);
  return ahead_ * 0.5 * (1.0 + std::cos(std::numbers::pi * part));
}

}  // namespace tandem

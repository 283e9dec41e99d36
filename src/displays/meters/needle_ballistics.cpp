#include "displays/meters/needle_ballistics.h"

#include <cmath>

namespace tandem {

namespace {
constexpr double kNatural = 13.42;  // rad/s
constexpr double kDamping = 0.81;
constexpr double kInvisible = 0.0005;  // a twentieth of a pixel at the tip of the needle
}  // namespace

void NeedleBallistics::move(double target, double seconds) noexcept {
  const double fade = kDamping * kNatural;
  const double swing = kNatural * std::sqrt(1.0 - kDamping * kDamping);
  const double way = deflection_ - target;
  const double left = std::exp(-fade * seconds);
  const double cosine = std::cos(swing * seconds);
  const double sine = std::sin(swing * seconds) / swing;
  deflection_ = target + left * (way * cosine + (speed_ + fade * way) * sine);
  speed_ = left * (speed_ * cosine - (fade * speed_ + kNatural * kNatural * way) * sine);
  if (deflection_ < 0.0) stand_at(0.0);
}

bool NeedleBallistics::arrived(double target) const noexcept {
  return std::abs(deflection_ - target) < kInvisible && std::abs(speed_) < kInvisible * kNatural;
}

void NeedleBallistics::stand_at(double deflection) noexcept {
  deflection_ = deflection;
  speed_ = 0.0;
}

}  // namespace tandem

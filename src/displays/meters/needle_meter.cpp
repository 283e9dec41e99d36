#include "displays/meters/needle_meter.h"

#include <cmath>

namespace tandem {

namespace {

constexpr double kVisible = 0.0005;  // smaller moves are not worth a repaint

constexpr double kNeedleOffset = 8.0;  // dB
constexpr double kNeedleGain = -5.0;   // dB

double reading_of(float amplitude) noexcept {
  return 20.0 * std::log10(static_cast<double>(amplitude)) + kNeedleOffset + kNeedleGain;
}

}  // namespace

double needle_deflection(double reading) noexcept { return std::pow(10.0, (reading - kNeedleTop) / 20.0); }

double needle_reading(double deflection) noexcept { return 20.0 * std::log10(deflection) + kNeedleTop; }

void NeedleMeter::reset() {
  levels_ = {};
  needle_ = {};
  target_ = 0.0;
  shown_ = 0.0;
}

// The blocks that came for this picture share its time evenly: the sound's clock and the screen's need not agree.
bool NeedleMeter::pass(double seconds) {
  const std::span<const BlockLevel> blocks = levels_.advance(seconds);
  if (blocks.empty()) needle_.move(target_, seconds);
  for (const BlockLevel& block : blocks) {
    const float amplitude = side_ == 0 ? block.average.left : block.average.right;
    target_ = amplitude > 0.0F ? needle_deflection(reading_of(amplitude)) : 0.0;
    needle_.move(target_, seconds / static_cast<double>(blocks.size()));
  }
  return show();
}

bool NeedleMeter::show() noexcept {
  if (needle_.arrived(target_)) needle_.stand_at(target_);
  const bool at_stop = needle_.deflection() <= 0.0 && shown_ > 0.0;
  if (std::abs(needle_.deflection() - shown_) < kVisible && !at_stop) return false;
  shown_ = needle_.deflection();
  return true;
}

bool NeedleMeter::resting() const {
  return levels_.silent() && target_ <= 0.0 && needle_.deflection() <= 0.0 && shown_ <= 0.0;
}

}  // namespace tandem
